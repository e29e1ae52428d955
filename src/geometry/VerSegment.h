#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

class CRefLine;

// One piece of the elevation of a reference line as a function of station.
//
// Types: 1 straight grade; 2 circular arc (Radius > 0 a sag, < 0 a crest); 5 leg of a tangent
// polygon from corner point to corner point, with Radius the rounding at its end corner. For
// types 1 and 5 the tangents are slopes (dZ/dS); for type 2 they are the sines of the tangent
// angles at each end.
class CVerSegment : public CObject {
public:
    CVerSegment() = default;
    CVerSegment(int no, CRefLine* refLine, int type, double startStation, double startZ,
                double endStation, double endZ, double radius);

    int KeyNo() const { return VerSegNo; }

    // Works out the end tangents. Messages are appended to ValidateMessage. Returns SegmCalc.
    int CalculateAndValidate();
    // Elevation and slope at a station; 0 off the segment.
    double CalcZCoordByStation(double s) const;
    double CalcZDirVector(double s) const;
    // The tangent points and crowns of the corner roundings of a type 5 leg from its neighbour
    // legs (either may be null). Returns 1.
    int CalculateTangentPoints(const CVerSegment* prev, const CVerSegment* next);
    // A type 5 leg reaches from crown to crown of its corner roundings, other types from start to
    // end station. Returns 1 or 0.
    int IsStationOnSegment(double s) const;

    // Fixed-width listing, header first when withHeader is not 0. Returns 1.
    int ListVerSegData(std::string* text, int withHeader) const;
    // The command line that makes this segment again.
    std::string ConvertToASCII() const;

    int GetVerSegNo() const { return VerSegNo; }
    void SetVerSegNo(int v) { VerSegNo = v; }
    CRefLine* GetRefLinePtr() const { return RefLinePtr; }
    void SetRefLinePtr(CRefLine* v) { RefLinePtr = v; }
    int GetRefLineNo() const { return RefLineNo; }
    void SetRefLineNo(int v) { RefLineNo = v; }
    int GetType() const { return Type; }
    // A straight grade has no radius: type 1 clears it.
    void SetType(int v);
    // Moving a corner puts its rounding back to a sharp corner until the tangent points are
    // worked out again.
    double GetStartStation() const { return StartStation; }
    void SetStartStation(double v);
    double GetStartZ() const { return StartZ; }
    void SetStartZ(double v);
    double GetEndStation() const { return EndStation; }
    void SetEndStation(double v);
    double GetEndZ() const { return EndZ; }
    void SetEndZ(double v);
    double GetRadius() const { return Radius; }
    void SetRadius(double v) { Radius = v; }
    int GetSegmCalc() const { return SegmCalc; }
    void SetSegmCalc(int v) { SegmCalc = v; }
    double GetStartTangent() const { return StartTangent; }
    void SetStartTangent(double v) { StartTangent = v; }
    double GetEndTangent() const { return EndTangent; }
    void SetEndTangent(double v) { EndTangent = v; }
    const std::string& GetValidateMessage() const { return ValidateMessage; }
    void SetValidateMessage(const std::string& v) { ValidateMessage = v; }

    // Values of the corner roundings of a type 5 leg, set by CalculateTangentPoints.
    double GetStartTangentPointStation() const { return StartTpStation; }
    double GetEndTangentPointStation() const { return EndTpStation; }
    double GetStartTangentPointZ() const { return StartTpZ; }
    double GetEndTangentPointZ() const { return EndTpZ; }
    double GetStartRoundingRadius() const { return StartRoundR; }
    double GetEndRoundingRadius() const { return EndRoundR; }
    double GetStartCrownZ() const { return StartCrownZ; }
    double GetEndCrownZ() const { return EndCrownZ; }
    double GetStartCrownStation() const { return StartCrownStation; }
    double GetEndCrownStation() const { return EndCrownStation; }

private:
    void ResetStartCorner();
    void ResetEndCorner();
    // Z or slope on the corner roundings of a type 5 leg; false when s is on neither stretch.
    bool RoundingValue(double s, bool slope, bool radiusTest, double* value) const;

    int VerSegNo = -1;
    CRefLine* RefLinePtr = nullptr;
    int RefLineNo = 0;
    int Type = 0;
    double StartStation = 0.0, StartZ = 0.0;
    double Radius = 0.0;
    double EndStation = 0.0, EndZ = 0.0;
    int SegmCalc = 0;
    double StartTangent = 0.0, EndTangent = 0.0;
    double StartTpStation = 0.0, EndTpStation = 0.0;
    double StartTpZ = 0.0, EndTpZ = 0.0;
    double StartRoundR = 0.0, EndRoundR = 0.0;
    double StartCrownZ = 0.0, EndCrownZ = 0.0;
    double StartCrownStation = 0.0, EndCrownStation = 0.0;
    std::string ValidateMessage;
};

} // namespace kelo
