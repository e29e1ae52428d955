#pragma once

#include <string>

namespace kelo {

class CElement;
class CKeySection;
class CRefLine;
class CStructure;
class CStructureCmd;

// The handlers of the frame model commands: nodes, elements, supports, joints, element properties,
// masses, models, members and selections. Made by the interpreter, to which it hands its handlers
// and checks.
//
// A handler takes the rest of the line behind the keyword and answers 0 (done), -1 (done with a
// warning) or -2 (error: the command is dropped whole, no object of its range is made). A check
// takes the values of the command with the defaults filled in, completes the range of numbers in
// them, and answers 0, -1 (warnings only) or -2 (an error). Errors are looked for at check level 1
// and above, warnings at level 2 and above; at level 0 only the range is completed.
class CFrameCmd {
public:
    explicit CFrameCmd(CStructureCmd& cmd);
    CFrameCmd(const CFrameCmd&) = delete;
    CFrameCmd& operator=(const CFrameCmd&) = delete;

    // ---- nodes
    int Node(std::string& rest, int showDialog);
    int NodeDataCheck(double* values, int showDialog);
    int Rflnode(std::string& rest, int showDialog);
    int RflnodeDataCheck(double* values, int showDialog);
    int Axisnode(std::string& rest, int showDialog);
    int AxisnodeDataCheck(double* values, int showDialog);
    int Axis2nod(std::string& rest, int showDialog);
    int Axis2nodDataCheck(double* values, int showDialog);
    int Nodecoord(std::string& rest, int showDialog);
    int NodecoordDataCheck(double* values, int showDialog);
    int Boundcond(std::string& rest, int showDialog);
    int BoundcondDataCheck(double* values, int showDialog);

    // ---- elements and their properties
    int Elem(std::string& rest, int showDialog);
    int ElemDataCheck(double* values, int showDialog);
    int Joint(std::string& rest, int showDialog);
    int JointDataCheck(double* values, int showDialog);
    int Geomsect(std::string& rest, int showDialog);
    int GeomsectDataCheck(double* values, int showDialog);
    int Elemspec(std::string& rest, int showDialog);
    int ElemspecDataCheck(double* values, int showDialog);
    int Dessect(std::string& rest, int showDialog);
    int DessectDataCheck(double* values, int showDialog);
    int Mass(std::string& rest, int showDialog);
    int MassDataCheck(double* values, int showDialog);
    int Windfact(std::string& rest, int showDialog);
    int WindfactDataCheck(double* values, int showDialog);
    int TorsionAD(std::string& rest, int showDialog);
    int TorsionADDataCheck(double* values, int showDialog);
    int Axial(std::string& rest, int showDialog);
    int AxialDataCheck(double* values, int showDialog);
    int Delete(std::string& rest, int showDialog);
    int DeleteDataCheck(double* values, int showDialog);

    // ---- models, members, selections and the project
    int Model(std::string& rest, int showDialog);
    int ModelDataCheck(double* values, int showDialog);
    int Modmodif(std::string& rest, int showDialog);
    int ModmodifDataCheck(double* values, int showDialog);
    int Member(std::string& rest, int showDialog);
    int MemberDataCheck(double* values, int showDialog);
    int Sele(std::string& rest, int showDialog);
    int Seledel(std::string& rest, int showDialog);
    int SeleDataCheck(double* values, int showDialog);
    int Esel(std::string& rest, int showDialog);
    int EselDataCheck(double* values, int showDialog);
    int Project(std::string& rest, int showDialog);
    int ProjectDataCheck(double* values, int showDialog);

    // The most objects that one command may make or change through its range: far beyond any
    // frame model, and an end to ranges such as NODE 1 1E9 1 that would exhaust the memory.
    static constexpr double kMaxRangeCount = 1000000.0;

private:
    CStructure& Structure() const;
    // Reads the values of command `type` over the defaults in `values` and runs its check.
    // Answers the check's result, or -2 for a line whose values can't be read.
    int ReadValues(int type, std::string& rest, double* values, int count, std::string& text,
                   int showDialog);
    // Completes the range first, last, step at values[base] (no range for a negative base) and
    // refuses one that cannot be walked. Answers false when the check ends here, with its answer
    // in `result`: after a refused range, or at check level 0.
    bool BeginCheck(int base, double* values, int showDialog, int& result);
    bool WarningsChecked() const;
    // Warning 2027 for each element of the range at values[base] that does not exist.
    int MissingElements(const double* range, int showDialog);
    // Nodes along a line for the range at values[0]: evenly spaced from station s1 to station s2,
    // the last one on s2, each at the line's point plus the offset to the section's centre.
    void NodesAlongLine(const double* range, CRefLine& line, double s1, double s2);
    // Warning 2104 for the first node of the range whose station lies off the line.
    int StationsOnLine(const double* range, CRefLine& line, double s1, double s2, int showDialog);
    // Stations of two axes of a line plus offsets. Answers 0 and the number of a missing axis;
    // the second axis is needed only for a range of more than one node.
    // Nodes along the line v[3] between the axes v[4] and v[5] at the two offsets: the shared
    // body of AXISNODE and AXIS2NOD.
    int NodesBetweenAxes(double* v, double offset1, double offset2, int check);
    int AxisStations(const double* values, const CRefLine& line, int axis1, int axis2,
                     double offset1, double offset2, double& s1, double& s2, int& missing) const;
    // The check of AXISNODE (an offset to each axis) and AXIS2NOD (one offset to both).
    int AxisNodeCheck(double* values, bool sharedOffset, int showDialog);
    int Select(std::string& rest, int showDialog, int type, int visible);
    // Sets an element's section, its pointer on line 0 and, for a spring section, the element
    // type that the solver reads: 2 translation spring, 3 rotation spring, 4 spring matrix.
    void SetElementSection(CElement& element, int sectionNo) const;
    CRefLine* Line0();

    CStructureCmd& m_cmd;
};

} // namespace kelo
