#pragma once

#include "platform/Object.h"

namespace kelo {

// A point of a section outline or of a road surface. Numbers are real: 1.5 sits between 1 and 2,
// and road points are numbered by zone (2.1, -1.3, ...). X runs across the section, positive to
// the right in the view along the line, Y up; Xg, Yg, Zg are global coordinates (m).
//
// Only the fields that road surfaces and polylines use are here; point definitions relative to
// other points build on it.
class CSectPoint : public CObject {
public:
    CSectPoint() = default;
    explicit CSectPoint(double no) : No(no) {}
    // An absolute point (type 0) or a radius point (type -1, radius in x).
    CSectPoint(double no, int type, double x, double y);
    ~CSectPoint() override = default;

    double GetNo() const { return No; }
    void SetNo(double v) { No = v; }
    int GetType() const { return Type; }
    void SetType(int v) { Type = static_cast<short>(v); }
    bool IsRadius() const { return Type == -1; }
    double GetX() const { return X; }
    void SetX(double v) { X = v; }
    double GetY() const { return Y; }
    void SetY(double v) { Y = v; }
    double GetR() const { return R; }
    void SetR(double v) { R = v; }
    double GetDeltaX() const { return DeltaX; }
    void SetDeltaX(double v) { DeltaX = v; }
    double GetDeltaY() const { return DeltaY; }
    void SetDeltaY(double v) { DeltaY = v; }
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

private:
    double No = 0.0;
    short Type = 0;
    double X = 0.0, Y = 0.0, R = 0.0;
    double DeltaX = 0.0, DeltaY = 0.0;
    double Xg = 0.0, Yg = 0.0, Zg = 0.0;
    int TemporaryFlag = 0;
};

} // namespace kelo
