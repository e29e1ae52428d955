#pragma once

namespace kelo {

// The clothoid series of a spiral of parameter A (m), with l the arc length (m) from the point of
// infinite radius. The local frame has its origin at that point, x along the tangent there and y
// to the left, so that the spiral turns left with growing l. Three terms of each series keep the
// error below 2e-6·A for l up to A, which covers every transition curve of a road.
double ClotoideX(double l, double a);
double ClotoideY(double l, double a);
// Accumulated tangent angle l²/(2A²), radians.
double ClotoideAngle(double l, double a);

// The point at station s of the clothoid of parameter a that joins (x[0], y[0]) at station
// stations[0] to (x[1], y[1]) at stations[1].
//
// radii are those at the two ends; one of |R| <= 1e-5 is an infinite radius. Their sign tells the
// side the spiral bends to in the form the horizontal segment hands them over: for a pair with an
// infinite end a positive radius bends left; a pair of two finite radii comes negated, so there a
// positive pair bends right.
//
// The spiral runs from l = A²/|R0| to l = A²/|R1|; stations map linearly onto that stretch, so the
// ends of the segment are the ends of the spiral whatever small mismatch the stations have. The
// stretch of the series is turned and scaled to pass exactly through both given points.
//
// Answers the point in xRes, yRes and the tangent in the direction of travel as an angle in gon
// (400 to the circle, counter-clockwise from +X) in dirGon. Returns 1, or 0 with zeros when the
// data describe no spiral (A not positive, both radii infinite or of one size, coincident end
// points or stations).
int FindOnePtOnClotoide(double s, const double stations[2], const double radii[2], double a,
                        const double x[2], const double y[2], double* xRes, double* yRes,
                        double* dirGon);

} // namespace kelo
