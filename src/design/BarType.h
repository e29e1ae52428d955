#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

// What reinforcement types and stirrup types of the project share: the bar diameter (mm), the
// bars in one bundle, and the amount, given by the kind `Type`: 1 by a count of bundles, 2 by
// the spacing of bundles (mm), 3 by an area per metre (mm²/m).
class CBarType : public CObject {
public:
    // The amount that the kind gives: bundle count, spacing or area per metre; 0 for no kind.
    double GetValue() const;
    // A short text of the type, such as "2d25 c/c 150".
    std::string GetDescription() const;

    int GetNo() const { return No; }
    void SetNo(int v) { No = v; }
    int GetType() const { return Type; }
    void SetType(int v) { Type = v; }
    double GetBarsPrBundle() const { return BarsPrBundle; }
    void SetBarsPrBundle(double v) { BarsPrBundle = v; }
    int GetBundleCount() const { return BundleCount; }
    void SetBundleCount(int v) { BundleCount = v; }
    double GetSpacing() const { return Spacing; }
    void SetSpacing(double v) { Spacing = v; }
    double GetArea() const { return Area; }
    void SetArea(double v) { Area = v; }
    double GetDiameter() const { return Diameter; }
    void SetDiameter(double v) { Diameter = v; }

protected:
    CBarType() = default;
    CBarType(int no, int type, double diameter, double barsPrBundle, int bundleCount,
             double spacing, double area)
        : No(no), Type(type), BarsPrBundle(barsPrBundle), BundleCount(bundleCount),
          Spacing(spacing), Area(area), Diameter(diameter) {}
    CBarType(const CBarType&) = default;
    CBarType& operator=(const CBarType&) = default;

    // True when every field but the number is the same (to 1e-5).
    bool HasSameData(const CBarType* other) const;

private:
    int No = 0;
    int Type = 2;
    double BarsPrBundle = 1.0;
    int BundleCount = 0;
    double Spacing = 0.0;
    double Area = 0.0;
    double Diameter = 0.0;
};

} // namespace kelo
