#pragma once

#include "design/ConcrDesPar.h"
#include "design/ConcrMatPar.h"
#include "design/PrestDesPar.h"
#include "design/PrestMatPar.h"
#include "design/ReinfDesPar.h"
#include "design/ReinfMatPar.h"
#include "design/ReinfType.h"
#include "design/SectDesPar.h"
#include "design/ShearReinfType.h"
#include "design/SteelDesPar.h"
#include "design/SteelMatPar.h"

#include <memory>
#include <vector>

namespace kelo {

// The first material and design parameter sets of a new project, number 1 each, by the design
// code of concrete (101 NS 3473 5th edition, 102 4th edition, 103 BBK94, 104 BS 5400 part 4,
// 105 NS-EN 1992, 106 AASHTO LRFD 2012) or of steel (201, 202). Language 1 is Norwegian,
// 2 English; it decides the name of the sets that carry no code name.
std::unique_ptr<CConcrMatPar> MakeDefaultConcrMat(int concrCode, int language);
std::unique_ptr<CReinfMatPar> MakeDefaultReinfMat(int concrCode, int language);
std::unique_ptr<CPrestMatPar> MakeDefaultPrestMat(int concrCode, int language);
std::unique_ptr<CSteelMatPar> MakeDefaultSteelMat(int steelCode, int language);
std::unique_ptr<CConcrDesPar> MakeDefaultConcrDes(int concrCode, int language);
std::unique_ptr<CReinfDesPar> MakeDefaultReinfDes(int concrCode, int language);
std::unique_ptr<CPrestDesPar> MakeDefaultPrestDes(int concrCode, int language);
std::unique_ptr<CSteelDesPar> MakeDefaultSteelDes(int steelCode, int language);
std::unique_ptr<CSectDesPar> MakeDefaultSectDes(int concrCode, int language);

// The step tables of reinforcement. Bars of 16, 20, 25 and 32 mm, single or in bundles of two:
// types by bundle count 2 to 8 (numbers from 1), by spacing (numbers n + 100) and by area per
// metre (n + 200) for the spacings 300 down to 50 mm that the bar size allows. Ahead of them
// three empty types of number 0, of kind 1, 2 and 3: they share the number, so a list that keeps
// numbers unique holds only the last of them.
std::vector<std::unique_ptr<CReinfType>> MakeDefaultReinfTypeList();
// Stirrups of 8, 10, 12 and 16 mm, single or in pairs, by spacing only, numbered from 1, after
// an empty type of number 0.
std::vector<std::unique_ptr<CShearReinfType>> MakeDefaultShearReinfTypeList();

// A value given as this (or lower) in a parameter command stands for "take the code's value".
inline constexpr double kValueByCode = -1e+101;
inline bool IsValueByCode(double v) { return v < -1e+100; }

// The code's value of a design parameter, by its place in the set's record (`GetParam` of the
// set, `GetGamma` index of the steel set). -1.0 for a place outside the record.
double DefaultConcrDesValue(int concrCode, int field);
double DefaultReinfDesValue(int concrCode, int field);
double DefaultPrestDesValue(int concrCode, int field);
double DefaultSectDesValue(int concrCode, int field);
double DefaultSteelDesValue(int steelCode, int index);

} // namespace kelo
