#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

// What the design parameter sets of concrete, reinforcing steel and prestressing steel have in
// common: number and name, and for each of the limit states 1 "ULS", 2 "PLS" and 3 "SLS" a
// material factor and a strain limit.
class CLimitStateDesPar : public CObject {
public:
    // Strain limit of a limit state; -1.0 outside 1 to 3. Setting one outside does nothing.
    double GetEpslim(int ls) const;
    void SetEpslim(int ls, double v);

    int KeyNo() const { return No; }
    int GetNo() const { return No; }
    void SetNo(int v) { No = v; }
    const std::string& GetName() const { return Name; }
    void SetName(const std::string& v) { Name = v; }
    double GetGammaULS() const { return GammaULS; }
    void SetGammaULS(double v) { GammaULS = v; }
    double GetGammaPLS() const { return GammaPLS; }
    void SetGammaPLS(double v) { GammaPLS = v; }
    double GetGammaSLS() const { return GammaSLS; }
    void SetGammaSLS(double v) { GammaSLS = v; }

protected:
    // The values a new set starts with; the strain limit is the same in all three limit states.
    struct LimitStateValues {
        double GammaULS;
        double GammaPLS;
        double GammaSLS;
        double Epslim;
    };

    CLimitStateDesPar(int no, const std::string& name, const LimitStateValues& start);
    CLimitStateDesPar(const CLimitStateDesPar&) = default;
    CLimitStateDesPar& operator=(const CLimitStateDesPar&) = default;

    // Material factor of limit state 1 to 3; -1.0 for any other.
    double GammaOf(int ls) const;

    // The parameter tables of the derived sets name these members by their places.
    double GammaULS;
    double GammaPLS;
    double GammaSLS;
    double EpslimULS;
    double EpslimPLS;
    double EpslimSLS;

private:
    int No;
    std::string Name;

    // The member that holds the strain limit of limit state 1 to 3; none for any other.
    static double CLimitStateDesPar::*EpslimOf(int ls);
};

} // namespace kelo
