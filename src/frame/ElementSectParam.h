#pragma once

#include "platform/Field.h"

namespace kelo {

class CElement;
class CStructure;

// What a beam element takes from its section: area (m²), the bending inertias about L and N and
// the torsion constant about M (m⁴), Young's modulus and shear modulus (MPa), Poisson's ratio,
// and for creep the notional size h0 (mm), the relative humidity (%) and the cylinder strength
// fck (MPa).
//
// An element finds its section in one of two ways. It names a section of its own (a frame section
// on line 0, given by its values), whose values it reads; or its nodes stand on reference lines,
// and the sections at the stations of its two ends are made from the key sections of the line
// and averaged.
class CElementSectParam {
public:
    CElementSectParam() = default;
    // G follows from E and ν as for an isotropic material.
    CElementSectParam(double a, double il, double im, double in, double e, double poisson,
                      double h0, double rh, double fck);

    KELO_FIELD(double, A, 0.0)
    KELO_FIELD(double, IL, 0.0)
    KELO_FIELD(double, IM, 0.0)
    KELO_FIELD(double, IN, 0.0)
    KELO_FIELD(double, YoungsModulus, 0.0)
    KELO_FIELD(double, Poisson, 0.0)
    KELO_FIELD(double, ShearModulus, 0.0)
    KELO_FIELD(double, H0, 0.0)
    KELO_FIELD(double, RH, 0.0)
    KELO_FIELD(double, Fck, 0.0)

public:
    // The line and stations that an element's section is taken from, by the lines and stations of
    // its nodes; see CElement::FindReflineConnection.
    static int FindReflineConnection(const CElement& element, CStructure* structure, int* refLineNo,
                                     double* station1, double* station2, int* viaSection);
    // The values of an element's section; see CElement::CalcElementSectParam.
    static int Calc(const CElement& element, CStructure* structure, CElementSectParam& out);
};

} // namespace kelo
