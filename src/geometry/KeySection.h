#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

// The cross-section of a member at one station of a reference line. Only what the line needs to
// keep its list of sections sorted and found is here; the outline and its properties build on it.
class CKeySection : public CObject {
public:
    CKeySection() = default;
    CKeySection(int no, std::string name, double stationNo);
    ~CKeySection() override = default;

    int KeyNo() const { return No; }

    int GetNo() const { return No; }
    void SetNo(int v) { No = v; }
    const std::string& GetName() const { return Name; }
    void SetName(const std::string& v) { Name = v; }
    double GetStationNo() const { return StationNo; }
    void SetStationNo(double v) { StationNo = v; }

private:
    int No = 0;
    std::string Name;
    double StationNo = 0.0;
};

} // namespace kelo
