#pragma once

#include <string>

namespace kelo {

class CStructureCmd;
class CStructure;
class CRefLine;

// The handlers of the reference line commands: lines, axes, plan and elevation segments,
// coordinates, columns and road profiles. Made by the interpreter, to which it hands its handlers
// and checks.
//
// The handlers only store what was typed. Chaining of plan segments, the corner roundings of the
// elevation, column lines and road points are derived data, worked out once at the end of a
// command file by the model root's recalculation, so that the order of the commands in a file
// does not matter and a long file is not recalculated line by line.
//
// Units: stations, coordinates, radii and clothoid parameters in metres, column angles in degrees.
// A positive plan radius bends left of the direction of travel; a positive vertical arc radius is
// a sag, a negative one a crest.
class CAlignmentCmd {
public:
    // Command numbers of the keyword table.
    static constexpr int kRfl = 11, kRflhor = 12, kRflver = 13, kRflcol = 14, kRflcoord = 15,
                         kRflaxis = 16, kRflprof = 17;
    // Values of a road profile command: line, station, then thirteen values of each side, left
    // side first.
    static constexpr int kProfValuesPerSide = 13;
    static constexpr int kRflprofValues = 2 + 2 * kProfValuesPerSide;

    explicit CAlignmentCmd(CStructureCmd& cmd);
    CAlignmentCmd(const CAlignmentCmd&) = delete;
    CAlignmentCmd& operator=(const CAlignmentCmd&) = delete;

    // REFLINE, RFL: number (1), type (1); name.
    int Rfl(std::string& rest, int showDialog);
    int RflDataCheck(double* values, int showDialog);
    // RFLAXIS: line (1), axis (1), station; name.
    int Rflaxis(std::string& rest, int showDialog);
    int RflaxisDataCheck(double* values, int showDialog);
    // RFLHORI: line (1), segment (1), type, start station, start X, start Y, end station, end X,
    // end Y, start radius, end radius, clothoid parameter.
    int Rflhor(std::string& rest, int showDialog);
    int RflhorDataCheck(double* values, int showDialog);
    // RFLVERT: line (1), segment (1), type, start station, start Z, end station, end Z, radius.
    int Rflver(std::string& rest, int showDialog);
    int RflverDataCheck(double* values, int showDialog);
    // RFLCOORD: line (1), point (1), type, X, Y, Z, station.
    int Rflcoord(std::string& rest, int showDialog);
    int RflcoordDataCheck(double* values, int showDialog);
    // RFLCOLUM: line (1), type (1), line stood on, location (station or axis number), offset to
    // the right, angle, top, bottom.
    int Rflcol(std::string& rest, int showDialog);
    int RflcolDataCheck(double* values, int showDialog);
    // RFLPROF, ROADPROF: line (1), station, the thirteen values of the left side, the thirteen of
    // the right side.
    int Rflprof(std::string& rest, int showDialog);
    int RflprofDataCheck(double* values, int showDialog);

    // Which of the twenty values of a road profile side the thirteen values of the command fill:
    // the zones up to the outer point, the step to the edge point and the end stub. The three
    // intermediate steps and the unused last value come only from road models read from outside.
    static int ProfValueIndex(int commandValue);

private:
    CStructure& Structure() const;
    // The line that geometry data go to; a line not yet defined is made, with type 1 and no name,
    // so that segments may be typed before or without their REFLINE. Null, with message 3120,
    // for a negative number.
    CRefLine* LineForGeometry(double value, int showDialog);
    int SegmentNumbersCheck(const double* values, bool typeValid, int typeMessage, int showDialog);
    // Parses the fields of a command into values (defaults already there) and the text, and runs
    // the command's check. Answers the command's result when it is to be dropped, else 0 or -1.
    int ValuesAndCheck(int type, const std::string& rest, double* values, int count,
                       std::string& text, int showDialog);
    void NoteGeometryChange(int lineNo);

    CStructureCmd& m_cmd;
};

} // namespace kelo
