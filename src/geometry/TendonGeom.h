#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

namespace kelo {

class CStructure;
class CTendon;

// One piece of a tendon's path in one plane. The offset y runs over the piece, ξ from 0 to 1,
// by the curve Type (1 cubic level at the end, 2 S-curve, 3 cubic level at the start,
// 4 straight, 5 two parabolas, 6 start slope P, 7 end slope P, 8 straight start at angle P then
// type 6, 9 type 7 then straight end at angle P). Values: start and end offsets (m), the third
// value P, and the length S of the straight part of types 8 and 9 (m).
class CTendonGeom : public CObject {
public:
    CTendonGeom() = default;
    CTendonGeom(int type, int dir) : Type(type), Dir(dir) {}

    KELO_FIELD(int, Type, 0)
    // 1 L direction, 2 N direction.
    KELO_FIELD(int, Dir, 2)
    KELO_FIELD(double, StartValue, 0.0)
    KELO_FIELD(double, EndValue, 0.0)
    KELO_FIELD(double, P, 0.0)
    KELO_FIELD(double, S, 0.0)
    KELO_FIELD(int, StartElement, 0)
    KELO_FIELD(int, EndElement, 0)
    KELO_FIELD(int, ElementStep, 1)
    // Stations (GeomType 1) or axis numbers (GeomType 2) of the ends.
    KELO_FIELD(double, StartStation, 0.0)
    KELO_FIELD(double, EndStation, 0.0)
    // Developed length of the piece, m, by CalcLength.
    KELO_FIELD(double, Length, 0.0)
    KELO_FIELD(CTendon*, Owner, nullptr)

public:
    // y, slope dy/dx (per metre) and curvature at ξ; a null curvature gives only y and slope.
    void CalcTenGeom(double xi, double* y, double* slope, double* curvature = nullptr) const;
    // Types 1 to 5: y and dy/dξ at two points.
    void CalcTenGeom(double xi1, double xi2, double* y1, double* y2, double* d1, double* d2) const;
    void CalcLength(CStructure* structure);
    // Node-to-node length (m) of an element of the structure; 0 when it or a node is missing.
    static double ElementLength(const CStructure& structure, int elementNo);
    void GetElements(int* start, int* end, int* step) const;
    void SetElements(int start, int end, int step);
    void GetStations(double* start, double* end) const;
    void SetStations(double start, double end);
    void GetValues(double* start, double* end, double* p, double* s = nullptr) const;
    void SetValues(double start, double end, double p, double s = 0.0);
};

} // namespace kelo
