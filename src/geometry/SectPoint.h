#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

#include <array>
#include <string>

namespace kelo {

class MessageSink;

// A point of a section outline or of a road surface. Numbers are real: 1.5 sits between 1 and 2,
// and road points are numbered by zone (2.1, -1.3, ...). X runs across the section, positive to
// the right in the view along the line, Y up; Xg, Yg, Zg are global coordinates (m).
//
// A section point is not just a coordinate: its `Type` says how X, Y follow from the entered
// offsets DeltaX, DeltaY and the references in GeomData (other section points, road points), and
// `ParaType` says how the offsets vary with the distance along the line to the next section:
//
//   -1  radius point: a bow between its neighbours; DeltaX holds the radius (positive bulges to
//       the right of the chord from the previous to the next point)
//    0  absolute             1  on the road, plumb below or above a road point
//    2  from a road point    3  along and normal to the road surface
//    4  skew axes            5  rotated axes
//    6  mid-point            7  from a section point
//    8  from a section point, plumb to the road
class CSectPoint : public CObject {
public:
    static constexpr int kGeomData = 10;

    CSectPoint() = default;
    explicit CSectPoint(double no) : No(no) {}
    CSectPoint(double no, int type) : No(no), Type(static_cast<short>(type)) {}
    // A point of a type with its offsets (x, y), which for an absolute point (type 0) are its
    // coordinates; for a radius point (type -1) x is the radius.
    CSectPoint(double no, int type, double x, double y);
    // An absolute point without a number.
    CSectPoint(double x, double y);
    // The generators' form: a point of a type on a polyline.
    CSectPoint(int type, int polyLine, double no, double x, double y);
    ~CSectPoint() override = default;

    // --- Variation of the offsets with the distance s (m) from the section ---
    // ParaType 0: constant; 1: d + c·s; 2: a·s³ + b·s² + c·s + d; 3: for X a·(s/b)^c + d, for Y
    // a·(s/b)·e^c + d. Within 1 mm of the section, or for an unknown law, the base value d. Law -1
    // needs the section and is not available: the sink is told and d is answered.
    double GetDeltaX(double s, MessageSink* sink = nullptr) const;
    double GetDeltaY(double s, MessageSink* sink = nullptr) const;
    double GetDeltaR(double s, MessageSink* sink = nullptr) const { return GetDeltaX(s, sink); }
    // The law of one axis (1 X, 2 Y; others are ignored) with its factors: type 0 clears them,
    // type 1 takes c from data[2], types 2 and 3 take a, b, c from data[0..2].
    void SetParaData(int axis, int type, const double* data);
    // Linear variation (law 1) on an axis reaches the base value of `next` at the distance dist;
    // without a next point or over no distance it stays constant.
    void CalcParaFactors(const CSectPoint* next, double dist);

    double GetNo() const { return No; }
    void SetNo(double v) { No = v; }
    int GetType() const { return Type; }
    void SetType(int v) { Type = static_cast<short>(v); }
    bool IsRadius() const { return Type == -1; }
    int GetId() const { return Id; }
    void SetId(int v) { Id = static_cast<short>(v); }
    int GetPLine() const { return PLine; }
    void SetPLine(int v) { PLine = v; }
    double GetX() const { return X; }
    void SetX(double v) { X = v; }
    double GetY() const { return Y; }
    void SetY(double v) { Y = v; }
    double GetR() const { return R; }
    void SetR(double v) { R = v; }
    // The entered offsets; a radius point keeps its radius in DeltaX.
    double GetDeltaX() const { return DeltaX; }
    void SetDeltaX(double v) { DeltaX = v; }
    double GetDeltaY() const { return DeltaY; }
    void SetDeltaY(double v) { DeltaY = v; }
    double GetDeltaR() const { return DeltaX; }
    void SetDeltaR(double v) { DeltaX = v; }
    double GetXg() const { return Xg; }
    double GetYg() const { return Yg; }
    double GetZg() const { return Zg; }
    void SetGlobal(double x, double y, double z) {
        Xg = x;
        Yg = y;
        Zg = z;
    }
    int GetTemporaryFlag() const { return TemporaryFlag; }
    void SetTemporaryFlag(int v) { TemporaryFlag = v; }
    int GetCalculatedFlag() const { return CalculatedFlag; }
    void SetCalculatedFlag(int v) { CalculatedFlag = v; }

    double GetGeomData(int i) const { return i >= 0 && i < kGeomData ? GeomData[i] : 0.0; }
    void SetGeomData(int i, double v) {
        if (i >= 0 && i < kGeomData) GeomData[i] = v;
    }
    // All ten references at once.
    void SetGeomData(const double* data);

    // Law of the X (axis 1) or Y (axis 2) offset; 1 for another axis.
    int GetParaType(int axis) const;
    void SetParaType(int axis, int type);
    // Factors a, b, c of an axis (1 X, 2 Y); 0 for another axis.
    double GetAfactor(int axis) const { return Factor(Afactor, axis); }
    double GetBfactor(int axis) const { return Factor(Bfactor, axis); }
    double GetCfactor(int axis) const { return Factor(Cfactor, axis); }
    // Sets the three factors of an axis and leaves its law.
    void SetFactors(int axis, double a, double b, double c);

    KELO_FIELD(std::string, ParaTypeText, "")
    KELO_FIELD(int, DeltaXId, 0)
    KELO_FIELD(int, DeltaYId, 0)
    KELO_FIELD(int, Selected, 0)
    KELO_FIELD(int, Inside, 0)
    KELO_FIELD(int, FaceConnection, 0)
    KELO_FIELD(double, CentLinePtNo, 0.0)
    KELO_FIELD(std::string, LayerName, "")
    KELO_FIELD(std::string, PointName, "")
    KELO_FIELD(std::string, SectName, "")
    KELO_FIELD(double, Bulge, 0.0)
    KELO_FIELD(double, CircleRadius, 0.0)
    KELO_FIELD(double, SlopeX, 0.0)
    KELO_FIELD(double, SlopeY, 0.0)
    KELO_FIELD(double, VAngle, 0.0)
    KELO_FIELD(double, CalcStationNo, 0.0)
    KELO_FIELD(double, StationNo, 0.0)
    KELO_FIELD(double, StationNoPt1, 0.0)
    KELO_FIELD(double, StationNoPt2, 0.0)
    KELO_FIELD(double, StationNoPt3, 0.0)
    KELO_FIELD(double, StationNoPt4, 0.0)
    KELO_FIELD(double, LDistance, 0.0)
    KELO_FIELD(double, DevDistance, 0.0)
    KELO_FIELD(double, Ka, 0.0)
    KELO_FIELD(double, Kb, 0.0)
    KELO_FIELD(double, K, 0.0)

private:
    static double Factor(const std::array<double, 2>& f, int axis) {
        return axis == 1 || axis == 2 ? f[static_cast<std::size_t>(axis - 1)] : 0.0;
    }
    double Delta(int axis, double s, MessageSink* sink) const;

    double No = 0.0;
    short Type = 0;
    short Id = 0;
    int PLine = 0;
    double X = 0.0, Y = 0.0, R = 0.0;
    double DeltaX = 0.0, DeltaY = 0.0;
    double Xg = 0.0, Yg = 0.0, Zg = 0.0;
    int CalculatedFlag = 0;
    int TemporaryFlag = 0;
    std::array<double, kGeomData> GeomData{};
    std::array<int, 2> ParaType{1, 1};
    std::array<double, 2> Afactor{}, Bfactor{}, Cfactor{};
};

} // namespace kelo
