#pragma once

#include <string>

namespace kelo {

class CDynLoad;

class CStructure;
class CStructureCmd;
class CLoadcase;
class CElement;

// The handlers of the load, combination and analysis commands. Made by the interpreter, to which it
// hands its handlers and checks. Each handler reads its values over the command's defaults, has
// its check look at them, and then changes the project; a check that answers an error leaves the
// project as it was.
class CLoadCmd {
public:
    explicit CLoadCmd(CStructureCmd& cmd);
    CLoadCmd(const CLoadCmd&) = delete;
    CLoadCmd& operator=(const CLoadCmd&) = delete;

private:
    int Load(std::string& rest, int showDialog);
    int LoadDataCheck(double* values, int showDialog);
    int Force(std::string& rest, int showDialog);
    int ForceDataCheck(double* values, int showDialog);
    int Displace(std::string& rest, int showDialog);
    int DisplaceDataCheck(double* values, int showDialog);
    int Sectforce(std::string& rest, int showDialog);
    int SectforceDataCheck(double* values, int showDialog);
    int Ordcomb(std::string& rest, int showDialog);
    int OrdcombDataCheck(double* values, int showDialog);
    int Sortcomb(std::string& rest, int showDialog);
    int SortcombDataCheck(double* values, int showDialog);
    int Sortline(std::string& rest, int showDialog);
    int SortlineDataCheck(double* values, int showDialog);
    int Creepcmb(std::string& rest, int showDialog);
    int CreepcmbDataCheck(double* values, int showDialog);
    int Creeplc(std::string& rest, int showDialog);
    int CreeplcDataCheck(double* values, int showDialog);
    int Calcgrp(std::string& rest, int showDialog);
    int CalcgrpDataCheck(double* values, int showDialog);
    int Calccomb(std::string& rest, int showDialog);
    int CalccombDataCheck(double* values, int showDialog);
    int Analysis(std::string& rest, int showDialog);
    int AnalysisDataCheck(double* values, int showDialog);
    int Ansetup(std::string& rest, int showDialog);
    int Ansolve(std::string& rest, int showDialog);
    int AnsolveDataCheck(double* values, int showDialog);
    int Solve(std::string& rest, int showDialog);
    int SolveDataCheck(double* values, int showDialog);
    int Trafline(std::string& rest, int showDialog);
    int TraflineDataCheck(double* values, int showDialog);
    int Trafload(std::string& rest, int showDialog);
    int TrafloadDataCheck(double* values, int showDialog);
    int Trafdisp(std::string& rest, int showDialog);
    int TrafdispDataCheck(double* values, int showDialog);
    int Earthqua(std::string& rest, int showDialog);
    int EarthquaDataCheck(double* values, int showDialog);
    int Dynwind(std::string& rest, int showDialog);
    int DynwindDataCheck(double* values, int showDialog);
    int Eqspec(std::string& rest, int showDialog);
    int EqspecDataCheck(double* values, int showDialog);
    int Eqspecpt(std::string& rest, int showDialog);
    int EqspecptDataCheck(double* values, int showDialog);
    int Windspec(std::string& rest, int showDialog);
    int Windlen(std::string& rest, int showDialog);
    int Windturb(std::string& rest, int showDialog);
    int Windcoh(std::string& rest, int showDialog);
    int Windvrtx(std::string& rest, int showDialog);
    // The five wind commands share their reading and their check, told apart by the number.
    int Wind(int type, std::string& rest, int showDialog);
    int WindDataCheck(int type, double* values, int showDialog);
    int Buckling(std::string& rest, int showDialog);
    int BucklingDataCheck(double* values, int showDialog);
    int Buckldes(std::string& rest, int showDialog);
    int BuckldesDataCheck(double* values, int showDialog);
    int Output(std::string& rest, int showDialog);
    int OutputDataCheck(double* values, int showDialog);

    // Reads the values of a command over its defaults and runs its check: the check's result
    // (0 or -1), or -2 when the command is to be dropped.
    int ReadAndCheck(int type, const std::string& rest, double* values, int count,
                     std::string& text, int showDialog);
    // The range first, last, step at values[base] as the interpreter completes and checks it,
    // refused (3004) when it holds more numbers than any model has.
    int RangeCheck(int base, double* values, int showDialog);
    CStructure& S() const;
    bool CheckErrors() const;
    bool CheckWarnings() const;
    // The load case of the number, made with the type when missing; a name given renames it.
    CLoadcase* FindOrMakeLoadcase(int no, const std::string& name, int type);
    // A new dynamic load on the case of v[0] (made when missing) with the modes v[1] to v[2].
    CDynLoad& AttachDynLoad(const double* v, const std::string& text);
    // Deletes calculated results before runs: kind 0 with scope 0 the load case and combination
    // results, any other call the combination results. Results given by FORCE and DISPL stay.
    void DeleteCalcResults(int kind, int scope);
    // The dependent geometry, as a command file brings it up to date at its end.
    void RecalcDependencies(bool charts);
    // The interval forms of LOAD: a trapezoidal part load (type 8) on each element that overlaps
    // the interval [a, b] of a global axis (0, 1, 2) or of the stations of a reference line.
    void ExpandIntervalLoad(CLoadcase& lc, const double* values, bool alongLine, int axisOrLine,
                            double a, double b);

    CStructureCmd& m_cmd;
};

} // namespace kelo
