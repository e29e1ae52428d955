#pragma once

#include "platform/Object.h"

#include <string>
#include <utility>

namespace kelo {

// A named station on a reference line.
class CAxis : public CObject {
public:
    CAxis() = default;
    CAxis(int no, std::string name, double stationNo, int verRefLineNo = 0)
        : No(no), Name(std::move(name)), StationNo(stationNo), VerRefLineNo(verRefLineNo) {}

    int KeyNo() const { return No; }
    // The command line that makes this axis again on line refLineNo.
    std::string ConvertToASCII(int refLineNo) const;

    int GetNo() const { return No; }
    void SetNo(int v) { No = v; }
    const std::string& GetName() const { return Name; }
    void SetName(const std::string& v) { Name = v; }
    double GetStationNo() const { return StationNo; }
    void SetStationNo(double v) { StationNo = v; }
    int GetVerRefLineNo() const { return VerRefLineNo; }
    void SetVerRefLineNo(int v) { VerRefLineNo = v; }

private:
    int No = 0;
    std::string Name;
    double StationNo = 0.0;
    int VerRefLineNo = 0;
};

} // namespace kelo
