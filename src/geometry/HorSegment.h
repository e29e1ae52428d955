#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

class CRefLine;

// One piece of the plan curve of a reference line: a straight, a circular arc or a clothoid, free
// (end points given) or chained (starting where the previous segment ends).
//
// Types: 1 straight, 2 arc, 3 clothoid; 11, 12, 13 their chained forms. Plan angles run
// counter-clockwise from +X in radians; a positive radius bends left of the direction of travel.
// On a clothoid a radius of 0 is the infinite radius at the straight end of the spiral.
class CHorSegment : public CObject {
public:
    CHorSegment() = default;
    CHorSegment(int no, CRefLine* refLine, int type, double startStation, double startX,
                double startY, double endStation, double endX, double endY, double startR,
                double endR, double klotoideParam);
    // A copy belongs to no line until it is added to one.
    CHorSegment(const CHorSegment& other);
    CHorSegment& operator=(const CHorSegment& other);

    int KeyNo() const { return HorSegNo; }

    // Works out the unit tangents (and for chained types the end point) from the given data.
    // Messages are appended to ValidateMessage. Returns SegmCalc.
    int CalculateAndValidate();

    // Plan coordinates and unit direction of travel at a station of this segment. Return 1, or 0
    // with zeros off the segment, on a segment shorter than 0.0001 m or of an unknown type.
    int CalcXYCoord(double station, double* const xy);
    int CalcXYDirVector(double station, double* const dir);

    // The clothoid series for this segment's parameter A.
    double CalcClotoideXCartesian(double l) const;
    double CalcClotoideYCartesian(double l) const;
    double CalcClotoideAccumAngle(double l) const;
    // Point and direction on the clothoid through this segment's end points.
    int CalcClotoideXYByTessel(double station, double* const xy) const;
    int CalcClotoideDirVector(double station, double* const dir) const;

    // Fixed-width listing of the segment, header first when withHeader is not 0. Returns 1.
    int ListHorSegData(std::string* text, int withHeader) const;
    // The command line that makes this segment again.
    std::string ConvertToASCII() const;

    int GetHorSegNo() const { return HorSegNo; }
    void SetHorSegNo(int v) { HorSegNo = v; }
    CRefLine* GetRefLinePtr() const { return RefLinePtr; }
    void SetRefLinePtr(CRefLine* v) { RefLinePtr = v; }
    int GetRefLineNo() const { return RefLineNo; }
    void SetRefLineNo(int v) { RefLineNo = v; }
    int GetType() const { return Type; }
    void SetType(int v) { Type = v; }
    double GetStartStation() const { return StartStation; }
    void SetStartStation(double v);
    double GetStartX() const { return StartX; }
    void SetStartX(double v) { StartX = v; }
    double GetStartY() const { return StartY; }
    void SetStartY(double v) { StartY = v; }
    double GetStartR() const { return StartR; }
    void SetStartR(double v) { StartR = v; }
    double GetEndStation() const { return EndStation; }
    void SetEndStation(double v);
    double GetEndX() const { return EndX; }
    void SetEndX(double v) { EndX = v; }
    double GetEndY() const { return EndY; }
    void SetEndY(double v) { EndY = v; }
    double GetEndR() const { return EndR; }
    void SetEndR(double v) { EndR = v; }
    double GetKlotoideParam() const { return KlotoideParam; }
    void SetKlotoideParam(double v) { KlotoideParam = v; }
    int GetSegmCalc() const { return SegmCalc; }
    void SetSegmCalc(int v);
    double GetStartUnitX() const { return StartUnitX; }
    void SetStartUnitX(double v) { StartUnitX = v; }
    double GetStartUnitY() const { return StartUnitY; }
    void SetStartUnitY(double v) { StartUnitY = v; }
    double GetEndUnitX() const { return EndUnitX; }
    void SetEndUnitX(double v) { EndUnitX = v; }
    double GetEndUnitY() const { return EndUnitY; }
    void SetEndUnitY(double v) { EndUnitY = v; }
    const std::string& GetValidateMessage() const { return ValidateMessage; }
    void SetValidateMessage(const std::string& v) { ValidateMessage = v; }

private:
    void CalcStraight();
    void CalcArc();
    void CalcChainedStraight();
    void CalcChainedArc();
    void CalcClotoide();
    void CalcChainedClotoide();
    void ClearUnits();
    // Hands a change of stations or of the calculated flag to the owning line, which keeps its
    // search order and knows whether all its segments are calculated.
    void StationsChanged();

    int HorSegNo = 0;
    CRefLine* RefLinePtr = nullptr;
    int RefLineNo = 0;
    int Type = 0;
    double StartStation = 0.0, StartX = 0.0, StartY = 0.0, StartR = 0.0;
    double EndStation = 0.0, EndX = 0.0, EndY = 0.0, EndR = 0.0;
    double KlotoideParam = 0.0;
    int SegmCalc = 0;
    double StartUnitX = 0.0, StartUnitY = 0.0, EndUnitX = 0.0, EndUnitY = 0.0;
    std::string ValidateMessage;
};

} // namespace kelo
