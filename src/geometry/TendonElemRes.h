#pragma once

#include "platform/ObList.h"
#include "platform/Object.h"

#include <array>
#include <cstddef>

namespace kelo {

// The tendon at one point of an element after losses: x/L, force P (kN, one tendon), the L and
// N offset triples (value, slope, curvature) and the global position.
class CTendonDesSecRes : public CObject {
public:
    CTendonDesSecRes() = default;
    CTendonDesSecRes(double xOverL, double p, double l0, double l1, double l2, double n0, double n1,
                     double n2)
        : XoverL(xOverL), P(p), L{l0, l1, l2}, N{n0, n1, n2} {}
    double GetXoverL() const { return XoverL; }
    double GetP() const { return P; }
    void SetP(double p) { P = p; }
    double GetL(int i) const { return L[static_cast<std::size_t>(i)]; }
    double GetN(int i) const { return N[static_cast<std::size_t>(i)]; }
    double GetCoord(int i) const { return Coord[static_cast<std::size_t>(i)]; }
    void SetCoord(double x, double y, double z) { Coord = {x, y, z}; }

private:
    double XoverL = 0.0, P = 0.0;
    std::array<double, 3> L{}, N{}, Coord{};
};

// The tendon's points on one element, in order of x/L.
class CTendonElemRes : public CObject {
public:
    CTendonElemRes() = default;
    explicit CTendonElemRes(int elementNo) : ElementNo(elementNo) {}
    int GetElementNo() const { return ElementNo; }
    COwnedList<CTendonDesSecRes>* GetSecResList() { return &SecRes; }
    const COwnedList<CTendonDesSecRes>* GetSecResList() const { return &SecRes; }
    // Force at ξ by linear interpolation between the points around it.
    double CalcTendonForce(double xi) const;

private:
    int ElementNo = 0;
    COwnedList<CTendonDesSecRes> SecRes;
};

} // namespace kelo
