#include "design/ConcrMatPar.h"
#include "geometry/KeySection.h"
#include "geometry/RefLine.h"
#include "model/Structure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

using namespace kelo;

namespace {

constexpr double kPi = std::numbers::pi;

// A point of an outline: x, y, and for a radius point (bow to the next point) its radius.
struct P {
    double x, y, r = 0.0;
    bool radius = false;
};
P Bow(double r) { return {0.0, 0.0, r, true}; }

// A general solid drawn point by point, resolved and with its properties calculated.
std::unique_ptr<CKeySection> Drawn(const std::vector<P>& outline, int type = 13) {
    auto s = std::make_unique<CKeySection>(1, "Drawn", 0.0);
    s->SetType(type);
    double no = 0.0;
    for (const P& p : outline) {
        if (p.radius)
            s->AddSectPoint(std::make_unique<CSectPoint>(++no, -1, p.r, 0.0));
        else
            s->AddSectPoint(std::make_unique<CSectPoint>(++no, 0, p.x, p.y));
    }
    EXPECT_EQ(s->UpdateKeySection(0), 1);
    return s;
}

std::unique_ptr<CKeySection> Generated(int type, std::vector<double> dims) {
    auto s = std::make_unique<CKeySection>(1, "Std", 0.0);
    s->SetType(type);
    for (std::size_t i = 0; i < dims.size(); ++i) s->SetSpecParam(static_cast<int>(i), dims[i]);
    return s;
}

// All parts of the same stiffness.
SectionEnv UnitModulus() {
    SectionEnv env;
    env.YoungsModulus = [](int, int, int) { return 1.0; };
    return env;
}

// Area of a regular n-gon of circumradius r, and its moment of inertia about any axis through
// its centre: n triangles of apex angle α = 2π/n, each of area r²·sin α/2 and of polar moment
// r⁴·sin α·(2 + cos α)/12; by symmetry each axis takes half the polar moment.
double NgonArea(int n, double r) { return n / 2.0 * r * r * std::sin(2 * kPi / n); }
double NgonI(int n, double r) {
    const double a = 2 * kPi / n;
    return n * std::pow(r, 4) * std::sin(a) * (2 + std::cos(a)) / 24.0;
}
double NgonSide(int n, double r) { return 2 * r * std::sin(kPi / n); }

} // namespace

TEST(SectionProp, RectangleByPointsByDimensionsAndDesignType) {
    // b = 0.4, h = 0.8 with its corner at the origin: A = bh, centre (b/2, h/2), bh³/12, hb³/12.
    const double b = 0.4, h = 0.8;
    auto s = Drawn({{0, 0}, {b, 0}, {b, h}, {0, h}, {0, 0}});
    EXPECT_NEAR(s->GetSectionArea(), b * h, 1e-14);
    EXPECT_NEAR(s->GetCoGX(), b / 2, 1e-14);
    EXPECT_NEAR(s->GetCoGY(), h / 2, 1e-14);
    EXPECT_NEAR(s->GetMomInertL(), b * h * h * h / 12, 1e-14);
    EXPECT_NEAR(s->GetMomInertN(), h * b * b * b / 12, 1e-14);
    EXPECT_EQ(s->GetMomInertLN(), 0.0);
    // Notional size 2A/u over the whole perimeter.
    EXPECT_NEAR(s->GetEffectivThicness(), 2 * b * h / (2 * (b + h)), 1e-14);
    EXPECT_EQ(s->GetOuterSectionArea(), s->GetSectionArea());
    // The solid's area element is the outline itself.
    const CAreaElem* whole = s->GetAreaElemPtr(0);
    ASSERT_NE(whole, nullptr);
    EXPECT_NEAR(whole->GetA(), b * h, 1e-14);
    EXPECT_NEAR(whole->GetCy(), h / 2, 1e-14);

    // Turned the other way round the outline has a negative area, and no centre.
    auto cw = Drawn({{0, 0}, {0, h}, {b, h}, {b, 0}, {0, 0}});
    EXPECT_NEAR(cw->GetSectionArea(), -b * h, 1e-14);
    EXPECT_EQ(cw->GetCoGX(), 0.0);
    EXPECT_EQ(cw->GetCoGY(), 0.0);
    // Horizontal edges enclose nothing by ∮x dy.
    auto flat = Drawn({{0, 0}, {1, 0}, {2, 0}});
    EXPECT_EQ(flat->GetSectionArea(), 0.0);

    // The frame member of the same dimensions (m), with the fitted torsion constant
    // β·s³·l, β = 0.33 − 0.19·s/l. The series solution of St. Venant,
    // β = (1 − 192/π⁵·(s/l)·Σ tanh(nπl/2s)/n⁵)/3 over odd n, is within 3 % of the fit for every
    // ratio of the sides (2.8 % at l = 2s, where they differ most).
    auto m = Generated(3, {b, h});
    ASSERT_EQ(m->CalcSectionProp(0), 1);
    EXPECT_NEAR(m->GetSectionArea(), b * h, 1e-15);
    EXPECT_NEAR(m->GetMomInertL(), b * h * h * h / 12, 1e-15);
    EXPECT_NEAR(m->GetMomInertN(), h * b * b * b / 12, 1e-15);
    double sum = 0.0;
    for (int n = 1; n < 60; n += 2) sum += std::tanh(n * kPi * h / (2 * b)) / std::pow(n, 5);
    const double beta = (1 - 192 / std::pow(kPi, 5) * (b / h) * sum) / 3;
    EXPECT_NEAR(beta, 0.2287, 1e-4);
    EXPECT_NEAR(m->GetMomInertM(), beta * b * b * b * h, 0.03 * beta * b * b * b * h);
    EXPECT_NEAR(m->GetEffectivThicness(), b * h / (b + h), 1e-15);
    EXPECT_NEAR(m->GetOuterSectionArea(), b * h, 1e-15);

    // The design rectangle (mm) is drawn in metres about its middle and integrated.
    auto d = Generated(11, {400, 800});
    ASSERT_EQ(d->UpdateKeySection(0), 1);
    EXPECT_EQ(d->GetSectPointList().GetCount(), 5u);
    EXPECT_NEAR(d->GetSectionArea(), b * h, 1e-14);
    EXPECT_NEAR(d->GetCoGX(), 0.0, 1e-14);
    EXPECT_NEAR(d->GetCoGY(), 0.0, 1e-14);
    EXPECT_NEAR(d->GetMomInertL(), b * h * h * h / 12, 1e-14);
    EXPECT_NEAR(d->GetMomInertM(), beta * b * b * b * h, 0.03 * beta * b * b * b * h);
    EXPECT_NEAR(d->GetEffectivThicness(), b * h / (b + h), 1e-14);
    // Wall thicknesses of a solid rectangle are its sides (mm).
    EXPECT_EQ(d->GetEfficientThickness(0), 400.0);
    EXPECT_EQ(d->GetEfficientThickness(1), 800.0);
    EXPECT_EQ(d->GetEfficientThickness(4), 400.0);
    EXPECT_EQ(d->GetEfficientThickness(5), -1.0);
}

TEST(SectionProp, CircleOfTwoHalfBowsIsAnInscribed36Gon) {
    // Two radius points on chords of 2R: two half circles, 18 chords each, the regular 36-gon
    // inscribed in the circle. Its values are exact; against the circle itself the chords lose
    // 1 − sin 10°/(π/18) = 0.51 % of the area and 1.0 % of the moments.
    const double r = 0.6;
    auto s = Drawn({{0, -r}, Bow(r), {0, r}, Bow(r), {0, -r}});
    ASSERT_EQ(s->GetConvSectPointList().GetCount(), 37u);
    EXPECT_NEAR(s->GetSectionArea(), NgonArea(36, r), 1e-13);
    EXPECT_NEAR(s->GetCoGX(), 0.0, 1e-13);
    EXPECT_NEAR(s->GetCoGY(), 0.0, 1e-13);
    EXPECT_NEAR(s->GetMomInertL(), NgonI(36, r), 1e-13);
    EXPECT_NEAR(s->GetMomInertN(), NgonI(36, r), 1e-13);
    EXPECT_NEAR(s->GetSectionArea(), kPi * r * r, 0.006 * kPi * r * r);
    EXPECT_NEAR(s->GetMomInertL(), kPi * std::pow(r, 4) / 4, 0.011 * kPi * std::pow(r, 4) / 4);
    EXPECT_NEAR(s->GetEffectivThicness(), 2 * NgonArea(36, r) / (36 * NgonSide(36, r)), 1e-13);
    // Each radius point stands at the middle of its bow, bulging to the right of its chord.
    EXPECT_NEAR(s->GetSectPointPtr(2)->GetX(), r, 1e-13);
    EXPECT_NEAR(s->GetSectPointPtr(2)->GetY(), 0.0, 1e-13);
    EXPECT_NEAR(s->GetSectPointPtr(4)->GetX(), -r, 1e-13);

    // The design circle (mm) takes the closed form; its own outline is in quarter bows.
    auto c = Generated(12, {600, 0});
    ASSERT_EQ(c->UpdateKeySection(0), 1);
    EXPECT_NEAR(c->GetSectionArea(), kPi * r * r, 1e-14);
    EXPECT_NEAR(c->GetMomInertL(), kPi * std::pow(r, 4) / 4, 1e-14);
    EXPECT_NEAR(c->GetMomInertM(), kPi * std::pow(r, 4) / 2, 1e-14);
    EXPECT_NEAR(c->GetEffectivThicness(), r, 1e-14);
    EXPECT_EQ(c->GetEfficientThickness(0), 1200.0);
    ASSERT_EQ(c->CalcSectionPropBySectPoint(0), 1);
    EXPECT_NEAR(c->GetSectionArea(), NgonArea(72, r), 1e-13);
}

TEST(SectionProp, PipeClosedFormAndItsOutlineWithASeam) {
    // Outer radius 500 mm, wall 100 mm: A = π(R² − r²), I = π(R⁴ − r⁴)/4, torsion 2I.
    const double ro = 0.5, ri = 0.4;
    auto s = Generated(12, {500, 100});
    ASSERT_EQ(s->UpdateKeySection(0), 1);
    EXPECT_NEAR(s->GetSectionArea(), kPi * (ro * ro - ri * ri), 1e-14);
    const double i = kPi * (std::pow(ro, 4) - std::pow(ri, 4)) / 4;
    EXPECT_NEAR(s->GetMomInertL(), i, 1e-14);
    EXPECT_NEAR(s->GetMomInertN(), i, 1e-14);
    EXPECT_NEAR(s->GetMomInertM(), 2 * i, 1e-14);
    // The closed form counts the inner perimeter at half: 2A/(2πR + πr).
    EXPECT_NEAR(s->GetEffectivThicness(), 2 * s->GetSectionArea() / (2 * kPi * ro + kPi * ri),
                1e-14);
    EXPECT_EQ(s->GetEfficientThickness(0), 100.0);

    // The outline: outer ring counter-clockwise, over a seam, the void clockwise and back. The
    // seam adds nothing to the integrals, and the drying perimeter takes the void at half.
    ASSERT_EQ(s->CalcSectionPropBySectPoint(0), 1);
    EXPECT_NEAR(s->GetSectionArea(), NgonArea(72, ro) - NgonArea(72, ri), 1e-13);
    EXPECT_NEAR(s->GetCoGY(), 0.0, 1e-13);
    EXPECT_NEAR(s->GetMomInertL(), NgonI(72, ro) - NgonI(72, ri), 1e-13);
    EXPECT_NEAR(s->GetMomInertM(), 2 * (NgonI(72, ro) - NgonI(72, ri)), 1e-13);
    const double u = 72 * NgonSide(72, ro) + 0.5 * 72 * NgonSide(72, ri);
    EXPECT_NEAR(s->CalcU(), u, 1e-12);
    EXPECT_NEAR(s->GetEffectivThicness(), 2 * s->GetSectionArea() / u, 1e-13);

    // The frame member pipe by diameters (m), with its half inner perimeter.
    auto m = Generated(2, {1.0, 0.6});
    ASSERT_EQ(m->CalcSectionProp(0), 1);
    EXPECT_NEAR(m->GetSectionArea(), kPi / 4 * (1.0 - 0.36), 1e-15);
    EXPECT_NEAR(m->GetMomInertL(), kPi / 64 * (1.0 - 0.1296), 1e-15);
    EXPECT_NEAR(m->GetMomInertM(), kPi / 32 * (1.0 - 0.1296), 1e-15);
    EXPECT_NEAR(m->GetEffectivThicness(), 2 * kPi / 4 * 0.64 / (kPi + kPi / 2 * 0.6), 1e-15);
    EXPECT_NEAR(m->GetOuterSectionArea(), kPi / 4, 1e-15);
}

TEST(SectionProp, ISectionDrawnPointByPointAndAsPanels) {
    // B = 300, H = 600, tf = 20, tw = 12 mm, drawn about the middle of its foot.
    const double B = 0.3, H = 0.6, tf = 0.02, tw = 0.012, hw = H - 2 * tf;
    auto s = Drawn({{-B / 2, 0},
                    {B / 2, 0},
                    {B / 2, tf},
                    {tw / 2, tf},
                    {tw / 2, H - tf},
                    {B / 2, H - tf},
                    {B / 2, H},
                    {-B / 2, H},
                    {-B / 2, H - tf},
                    {-tw / 2, H - tf},
                    {-tw / 2, tf},
                    {-B / 2, tf},
                    {-B / 2, 0}});
    EXPECT_NEAR(s->GetSectionArea(), 2 * B * tf + hw * tw, 1e-15);
    EXPECT_NEAR(s->GetCoGX(), 0.0, 1e-15);
    EXPECT_NEAR(s->GetCoGY(), H / 2, 1e-14);
    // The full rectangle less the two side strips beside the web.
    EXPECT_NEAR(s->GetMomInertL(), (B * std::pow(H, 3) - (B - tw) * std::pow(hw, 3)) / 12, 1e-15);
    EXPECT_NEAR(s->GetMomInertN(), 2 * tf * std::pow(B, 3) / 12 + hw * std::pow(tw, 3) / 12, 1e-16);

    // The same I as three plates on their centre lines (type 14 with panels): thin-walled
    // values, and the open section's St. Venant torsion Σ l·t³/3.
    const double d = H - tf;
    auto t = std::make_unique<CKeySection>(2, "Panels", 0.0);
    t->SetType(14);
    auto line = std::make_unique<CPolyLine>(1, 0, 0);
    const double xy[6][2] = {{-B / 2, tf / 2}, {B / 2, tf / 2},      {0, tf / 2},
                             {0, H - tf / 2},  {-B / 2, H - tf / 2}, {B / 2, H - tf / 2}};
    for (int k = 0; k < 6; ++k)
        line->AddSectPoint(std::make_unique<CSectPoint>(0, 1, k + 1.0, xy[k][0], xy[k][1]));
    t->AddPolyLine(std::move(line));
    t->AddLineElem(std::make_unique<CLineElem>(1, 1, 1.0, 2.0, tf, 0));
    t->AddLineElem(std::make_unique<CLineElem>(2, 1, 3.0, 4.0, tw, 0));
    t->AddLineElem(std::make_unique<CLineElem>(3, 1, 5.0, 6.0, tf, 0));
    const SectionEnv env = UnitModulus();
    ASSERT_EQ(t->UpdateKeySection(0, &env), 1);
    EXPECT_NEAR(t->GetSectionArea(), 2 * B * tf + d * tw, 1e-15);
    EXPECT_NEAR(t->GetCoGY(), H / 2, 1e-15);
    EXPECT_NEAR(t->GetMomInertL(), 2 * B * tf * d * d / 4 + tw * d * d * d / 12, 1e-15);
    EXPECT_NEAR(t->GetMomInertN(), 2 * tf * B * B * B / 12, 1e-15);
    EXPECT_NEAR(t->GetMomInertM(), (2 * B * std::pow(tf, 3) + d * std::pow(tw, 3)) / 3, 1e-17);
    // Without the moduli of the project there is nothing to weight the panels by.
    EXPECT_EQ(t->CalcSectionProp(0), 0);
}

TEST(SectionProp, BoxGirderWithTwoVoids) {
    // 6.0 × 2.0 m with two cells of 2.2 × 1.3 m from y = 0.3 to 1.6, webs 0.4, 0.8, 0.4. Each
    // void hangs by a seam from its own outer corner and is drawn clockwise.
    auto s = Drawn({{-3, 0},
                    {3, 0},
                    {2.6, 0.3},
                    {0.4, 0.3},
                    {0.4, 1.6},
                    {2.6, 1.6},
                    {2.6, 0.3},
                    {3, 0},
                    {3, 2},
                    {-3, 2},
                    {-2.6, 1.6},
                    {-0.4, 1.6},
                    {-0.4, 0.3},
                    {-2.6, 0.3},
                    {-2.6, 1.6},
                    {-3, 2},
                    {-3, 0}});
    const double cell = 2.2 * 1.3;
    const double a = 12.0 - 2 * cell;
    const double yc = (12.0 * 1.0 - 2 * cell * 0.95) / a;
    // Steiner about the centre: the whole block less the two cells.
    const double l = 6.0 * 8.0 / 12 + 12.0 * (1.0 - yc) * (1.0 - yc) -
                     2 * (2.2 * std::pow(1.3, 3) / 12 + cell * (0.95 - yc) * (0.95 - yc));
    const double n = 2.0 * 216.0 / 12 - 2 * (1.3 * std::pow(2.2, 3) / 12 + cell * 1.5 * 1.5);
    EXPECT_NEAR(s->GetSectionArea(), a, 1e-13);
    EXPECT_NEAR(s->GetCoGX(), 0.0, 1e-13);
    EXPECT_NEAR(s->GetCoGY(), yc, 1e-13);
    EXPECT_NEAR(s->GetMomInertL(), l, 1e-12);
    EXPECT_NEAR(s->GetMomInertN(), n, 1e-12);
    EXPECT_NEAR(s->GetMomInertLN(), 0.0, 1e-12);
    // Dries over the outer 16 m and half of the cells' 2 × 7 m.
    EXPECT_NEAR(s->CalcU(), 16.0 + 0.5 * 14.0, 1e-12);
    EXPECT_NEAR(s->GetEffectivThicness(), 2 * a / 23.0, 1e-13);

    // The same girder of area elements: the block and two voids, which count negative.
    auto e = std::make_unique<CKeySection>(2, "Elements", 0.0);
    e->SetType(100);
    auto rect = [](int no, int isVoid, double x0, double y0, double x1, double y1) {
        auto el = std::make_unique<CAreaElem>(no, 1, isVoid, 1, 1);
        const double c[4][2] = {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
        for (int k = 0; k < 4; ++k)
            el->AddSectPoint(std::make_unique<CSectPoint>(k + 1.0, 0, c[k][0], c[k][1]));
        return el;
    };
    e->AddAreaElem(rect(1, 0, -3, 0, 3, 2));
    e->AddAreaElem(rect(2, 1, -2.6, 0.3, -0.4, 1.6));
    e->AddAreaElem(rect(3, 1, 0.4, 0.3, 2.6, 1.6));
    const SectionEnv env = UnitModulus();
    ASSERT_EQ(e->UpdateKeySection(0, &env), 1);
    EXPECT_NEAR(e->GetAreaElemPtr(2)->GetA(), -cell, 1e-13);
    EXPECT_NEAR(e->GetAreaElemPtr(2)->GetCx(), -1.5, 1e-13);
    EXPECT_NEAR(e->GetSectionArea(), a, 1e-13);
    EXPECT_NEAR(e->GetCoGY(), yc, 1e-13);
    EXPECT_NEAR(e->GetMomInertL(), l, 1e-12);
    EXPECT_NEAR(e->GetMomInertN(), n, 1e-12);
    EXPECT_NEAR(e->GetOuterSectionArea(), a, 1e-13);
}

TEST(SectionProp, BoxTorsionByBredt) {
    // One cell of 5.0 × 1.6 m between the centre lines of its walls: webs 0.4, bottom slab 0.25,
    // top slab 0.3. Bredt: J = 4·Am²/∮ds/t.
    const double b = 5.0, h = 1.6, tw = 0.4, tb = 0.25, tt = 0.3;
    const double bredt = 4 * (b * h) * (b * h) / (2 * h / tw + b / tb + b / tt);
    EXPECT_NEAR(bredt, 5.731343, 1e-6);

    // As four closed panels round the origin.
    auto s = std::make_unique<CKeySection>(1, "Cell", 0.0);
    s->SetType(100);
    auto line = std::make_unique<CPolyLine>(1, 0, 1);
    const double xy[8][2] = {{-b / 2, -h / 2}, {b / 2, -h / 2}, {b / 2, -h / 2}, {b / 2, h / 2},
                             {b / 2, h / 2},   {-b / 2, h / 2}, {-b / 2, h / 2}, {-b / 2, -h / 2}};
    for (int k = 0; k < 8; ++k)
        line->AddSectPoint(std::make_unique<CSectPoint>(0, 1, k + 1.0, xy[k][0], xy[k][1]));
    s->AddPolyLine(std::move(line));
    const double t[4] = {tb, tw, tt, tw};
    for (int k = 0; k < 4; ++k)
        s->AddLineElem(std::make_unique<CLineElem>(k + 1, 1, 2 * k + 1.0, 2 * k + 2.0, t[k], 1));
    const SectionEnv env = UnitModulus();
    ASSERT_EQ(s->UpdateKeySection(0, &env), 1);
    EXPECT_NEAR(s->GetMomInertM(), bredt, 1e-12);
    const double a = b * tb + b * tt + 2 * h * tw;
    const double yc = (b * tt * h / 2 - b * tb * h / 2) / a;
    EXPECT_NEAR(s->GetSectionArea(), a, 1e-14);
    EXPECT_NEAR(s->GetCoGY(), yc, 1e-14);
    EXPECT_NEAR(s->GetMomInertL(),
                b * tb * std::pow(h / 2 + yc, 2) + b * tt * std::pow(h / 2 - yc, 2) +
                    2 * (tw * h * h * h / 12 + tw * h * yc * yc),
                1e-13);

    // The design box of the same walls (mm): outer 5400 × 1875, walls left, right, bottom, top.
    auto d = Generated(11, {5400, 1875, 400, 400, 250, 300});
    ASSERT_EQ(d->UpdateKeySection(0), 1);
    EXPECT_EQ(d->GetSectPointList().GetCount(), 11u);
    EXPECT_NEAR(d->GetMomInertM(), bredt, 1e-12);
    // Solid less void: the void of 4.6 × 1.325 has its middle 0.025 below the outline's.
    const double av = 4.6 * 1.325;
    EXPECT_NEAR(d->GetSectionArea(), 5.4 * 1.875 - av, 1e-13);
    EXPECT_NEAR(d->GetCoGY(), av * 0.025 / (5.4 * 1.875 - av), 1e-13);
    EXPECT_NEAR(d->GetEffectivThicness(),
                2 * d->GetSectionArea() / (2 * (5.4 + 1.875) + (4.6 + 1.325)), 1e-13);
    EXPECT_EQ(d->GetEfficientThickness(0), 250.0);
    EXPECT_EQ(d->GetEfficientThickness(1), 250.0);
    EXPECT_EQ(d->GetEfficientThickness(2), 300.0);
    EXPECT_EQ(d->GetEfficientThickness(3), 400.0);

    // The frame member box: Bredt over its mean wall lines, with the same wall in both webs and
    // both flanges.
    auto m = Generated(4, {2.0, 1.5, 0.3, 0.2});
    ASSERT_EQ(m->CalcSectionProp(0), 1);
    const double am = (2.0 - 0.3) * (1.5 - 0.2);
    EXPECT_NEAR(m->GetMomInertM(), 4 * am * am / (2 * 1.7 / 0.2 + 2 * 1.3 / 0.3), 1e-14);
    EXPECT_NEAR(m->GetSectionArea(), 3.0 - 1.4 * 1.1, 1e-14);
    EXPECT_NEAR(m->GetMomInertL(), (2.0 * 3.375 - 1.4 * std::pow(1.1, 3)) / 12, 1e-14);
    EXPECT_NEAR(m->GetEffectivThicness(), 2 * 1.46 / (7.0 + 2.5), 1e-14);
}

TEST(SectionProp, TBeamWithABow) {
    // Flange 2.0 × 0.25 on top of a web 0.5 wide whose foot is a half circle of r = 0.25 about
    // (0, 0.25). Closed form with the true half circle: area πr²/2 at 4r/3π below its diameter,
    // own moment (π/8 − 8/9π)·r⁴ about its centre and πr⁴/8 about the axis of symmetry.
    const double r = 0.25;
    auto s = Drawn({{-0.25, 0.25},
                    Bow(r),
                    {0.25, 0.25},
                    {0.25, 1.0},
                    {1.0, 1.0},
                    {1.0, 1.25},
                    {-1.0, 1.25},
                    {-1.0, 1.0},
                    {-0.25, 1.0},
                    {-0.25, 0.25}});
    const double af = 0.5, yf = 1.125, aw = 0.375, yw = 0.625;
    const double as = kPi * r * r / 2, ys = 0.25 - 4 * r / (3 * kPi);
    const double a = af + aw + as;
    const double yc = (af * yf + aw * yw + as * ys) / a;
    const double l = 2.0 * std::pow(0.25, 3) / 12 + af * (yf - yc) * (yf - yc) +
                     0.5 * std::pow(0.75, 3) / 12 + aw * (yw - yc) * (yw - yc) +
                     (kPi / 8 - 8 / (9 * kPi)) * std::pow(r, 4) + as * (ys - yc) * (ys - yc);
    const double n = 0.25 * 8.0 / 12 + 0.75 * 0.125 / 12 + kPi * std::pow(r, 4) / 8;
    // The 18 chords lose 0.51 % of the half circle, 0.05 % of the T; the centre rises by less
    // than 0.5 mm and the moments change by less than 0.3 %.
    EXPECT_NEAR(s->GetSectionArea(), a, 0.0006 * a);
    EXPECT_NEAR(s->GetCoGX(), 0.0, 1e-13);
    EXPECT_NEAR(s->GetCoGY(), yc, 0.0005);
    EXPECT_NEAR(s->GetMomInertL(), l, 0.003 * l);
    EXPECT_NEAR(s->GetMomInertN(), n, 0.003 * n);
    // The bow's radius point is at the bottom of the half circle.
    EXPECT_NEAR(s->GetSectPointPtr(2)->GetX(), 0.0, 1e-13);
    EXPECT_NEAR(s->GetSectPointPtr(2)->GetY(), 0.0, 1e-13);
    // The area element of the solid takes the ordinary points only: the bow is cut off by its
    // chord.
    const CAreaElem* whole = s->GetAreaElemPtr(0);
    ASSERT_NE(whole, nullptr);
    EXPECT_EQ(whole->GetPolyLine().GetSectPointCount(), 9u);
    EXPECT_NEAR(whole->GetA(), a - as, 1e-13);

    // The frame member T (m): web and flange about their centres, apart by h/2.
    auto m = Generated(5, {1.2, 0.2, 0.4, 2.0});
    ASSERT_EQ(m->UpdateKeySection(0), 1);
    EXPECT_NEAR(m->GetSectionArea(), 0.8, 1e-15);
    // Web 1.0 × 0.4 about y = 0.5, flange 2.0 × 0.2 about 1.1, centre at 0.8.
    EXPECT_NEAR(m->GetMomInertL(), 0.4 / 12 + 2.0 * 0.008 / 12 + 0.4 * 0.09 + 0.4 * 0.09, 1e-15);
    EXPECT_NEAR(m->GetMomInertN(), (1.0 * 0.064 + 0.2 * 8.0) / 12, 1e-15);
    EXPECT_NEAR(m->GetEffectivThicness(), 0.8 / 3.2, 1e-15);
    EXPECT_NEAR(m->GetOuterSectionArea(), 1.2 * 0.2, 1e-15);
    // Its picture (mm) is drawn about the centre of gravity.
    ASSERT_EQ(m->CalcSectionPropBySectPoint(4), 1);
    EXPECT_NEAR(m->GetSectionArea(), 0.8e6, 1e-6);
    EXPECT_NEAR(m->GetCoGX(), 0.0, 1e-9);
    EXPECT_NEAR(m->GetCoGY(), 0.0, 1e-9);
}

TEST(SectionProp, CompositeCentreIsWeightedByStiffness) {
    // Two blocks 1 × 1 m, the upper three times as stiff: the centre of stiffness at
    // (1·0.5 + 3·1.5)/4 = 1.25; area and moments unweighted about it.
    auto s = std::make_unique<CKeySection>(1, "Composite", 0.0);
    s->SetType(100);
    for (int k = 0; k < 2; ++k) {
        auto el = std::make_unique<CAreaElem>(k + 1, 1, 0, k + 1, 1);
        const double c[4][2] = {{0, 1.0 * k}, {1, 1.0 * k}, {1, k + 1.0}, {0, k + 1.0}};
        for (int i = 0; i < 4; ++i)
            el->AddSectPoint(std::make_unique<CSectPoint>(i + 1.0, 0, c[i][0], c[i][1]));
        s->AddAreaElem(std::move(el));
    }
    SectionEnv env;
    env.YoungsModulus = [](int, int matParNo, int) { return matParNo == 2 ? 3.0 : 1.0; };
    ASSERT_EQ(s->UpdateKeySection(0, &env), 1);
    EXPECT_NEAR(s->GetSectionArea(), 2.0, 1e-14);
    EXPECT_NEAR(s->GetCoGY(), 1.25, 1e-14);
    EXPECT_NEAR(s->GetCoGX(), 0.5, 1e-14);
    EXPECT_NEAR(s->GetMomInertL(), 2.0 / 12 + 0.75 * 0.75 + 0.25 * 0.25, 1e-14);
    EXPECT_NEAR(s->GetMomInertN(), 2.0 / 12, 1e-14);

    // The moduli of a project: its concrete parameters by number.
    CStructure project(2);
    auto weak = std::make_unique<CConcrMatPar>();
    weak->SetNo(1);
    weak->SetYoungsModulus(10000.0);
    auto stiff = std::make_unique<CConcrMatPar>();
    stiff->SetNo(2);
    stiff->SetYoungsModulus(30000.0);
    project.AddConcrMatPar(std::move(weak));
    project.AddConcrMatPar(std::move(stiff));
    const SectionEnv fromProject = SectionEnv::OfProject(&project, 0);
    ASSERT_EQ(s->CalcSectionProp(0, &fromProject), 1);
    EXPECT_NEAR(s->GetCoGY(), 1.25, 1e-14);
}

TEST(SectionProp, FrameMemberPicturesAndTypesWithoutProperties) {
    // Frame members are drawn in mm about their centre of gravity: the box 2.0 × 1.5 with webs
    // 0.3 and flanges 0.2 as its outline with the void, the pipe as two 72-gons.
    auto box = Generated(4, {2.0, 1.5, 0.3, 0.2});
    ASSERT_EQ(box->UpdateKeySection(0), 1);
    ASSERT_EQ(box->CalcSectionPropBySectPoint(4), 1);
    EXPECT_NEAR(box->GetSectionArea(), (3.0 - 1.4 * 1.1) * 1e6, 1e-6);
    EXPECT_NEAR(box->GetCoGY(), 0.0, 1e-9);
    auto pipe = Generated(2, {1.0, 0.6});
    ASSERT_EQ(pipe->UpdateKeySection(0), 1);
    ASSERT_EQ(pipe->CalcSectionPropBySectPoint(4), 1);
    EXPECT_NEAR(pipe->GetSectionArea(), NgonArea(72, 500) - NgonArea(72, 300), 1e-6);
    // A section given by its values shows the stiffness symbol, three lines of two points.
    auto k = Generated(1, {2.5, 0.3, 0.1, 0.2});
    ASSERT_EQ(k->UpdateKeySection(0), 1);
    EXPECT_EQ(k->GetPolyLineList().GetCount(), 3u);
    EXPECT_EQ(k->GetPolyLinePtr(3)->GetSectPointPtr(2.0)->GetY(), 200.0);
    EXPECT_EQ(k->GetEffectivThicness(), -1.0);

    EXPECT_EQ(Generated(2600, {})->CalcSectionProp(0), 1);
    // Thin-walled steel and library profiles need their generators and the profile table.
    for (int type : {1000, 1004, 10001, 15, 22})
        EXPECT_EQ(Generated(type, {})->CalcSectionProp(0), 0);
    EXPECT_EQ(Generated(1001, {300, 200, 10, 8})->UpdateKeySection(0), 0);
    // Reading the dimensions only, and area and centre only.
    auto r = Drawn({{0, 0}, {2, 0}, {2, 1}, {0, 1}, {0, 0}});
    EXPECT_EQ(r->CalcSectionPropBySectPoint(3), 1);
    EXPECT_NEAR(r->GetSectionArea(), 2.0, 1e-14);
    r->SetMomInertL(-1.0);
    ASSERT_EQ(r->CalcSectionPropBySectPoint(4), 1);
    EXPECT_EQ(r->GetMomInertL(), -1.0);
    // Mode 2 leaves torsion out.
    r->SetMomInertM(-1.0);
    ASSERT_EQ(r->CalcSectionPropBySectPoint(2), 1);
    EXPECT_EQ(r->GetMomInertM(), -1.0);
    EXPECT_NEAR(r->GetMomInertL(), 2.0 / 12, 1e-14);
}

TEST(SectionProp, LineToCentreByConnectType) {
    // Centre of gravity at (0.2, 0.4); point 3 at (0.4, 0.8); offset (0.1, 0.05).
    auto s = Drawn({{0, 0}, {0.4, 0}, {0.4, 0.8}, {0, 0.8}, {0, 0}});
    s->SetDeltaX(0.1);
    s->SetDeltaY(0.05);
    s->SetConnectSectPointNo(3);
    double out[2] = {9, 9};
    s->SetConnectType(0);
    ASSERT_EQ(s->CalcDistRefLineToCoG(out), 1);
    EXPECT_NEAR(out[0], 0.3, 1e-14);
    EXPECT_NEAR(out[1], 0.45, 1e-14);
    s->SetConnectType(1);
    ASSERT_EQ(s->CalcDistRefLineToCoG(out), 1);
    EXPECT_TRUE(out[0] == 0.0 && std::signbit(out[0]) && std::signbit(out[1]));
    s->SetConnectType(2);
    ASSERT_EQ(s->CalcDistRefLineToCoG(out), 1);
    EXPECT_EQ(out[0], 0.1);
    EXPECT_EQ(out[1], 0.05);
    // The line through point 3: the centre lies down and left of it.
    s->SetConnectType(3);
    ASSERT_EQ(s->CalcDistRefLineToCoG(out), 1);
    EXPECT_NEAR(out[0], -0.2, 1e-14);
    EXPECT_NEAR(out[1], -0.4, 1e-14);
    s->SetConnectType(4);
    ASSERT_EQ(s->CalcDistRefLineToCoG(out), 1);
    EXPECT_NEAR(out[0], -0.1, 1e-14);
    EXPECT_NEAR(out[1], -0.35, 1e-14);
    s->SetConnectSectPointNo(17);
    EXPECT_EQ(s->CalcDistRefLineToCoG(out), 0);
    s->SetConnectType(5);
    EXPECT_EQ(s->CalcDistRefLineToCoG(out), 0);
}

TEST(SectionProp, PlacedOnALineInGlobalCoordinates) {
    // A level straight heading +X from (1000, 500) at elevation 10; the rectangle 0.4 × 0.8 with
    // its corner at the origin hangs on the line by its centre of gravity (0.2, 0.4).
    CRefLine line(1, "Girder");
    line.AddHorSegment(std::make_unique<CHorSegment>(1, &line, 1, 0.0, 1000.0, 500.0, 100.0, 1100.0,
                                                     500.0, 0.0, 0.0, 0.0));
    ASSERT_EQ(line.RecalcChainedHorSegments(), 1);
    line.AddVerSegment(std::make_unique<CVerSegment>(1, &line, 1, 0.0, 10.0, 100.0, 10.0, 0.0));
    for (CVerSegment* v : line.GetVerSegmentList()) ASSERT_EQ(v->CalculateAndValidate(), 1);
    auto s = Drawn({{0, 0}, {0.4, 0}, {0.4, 0.8}, {0, 0.8}, {0, 0}});
    s->SetStationNo(20.0);
    s->SetRefLineNo(1);
    SectionEnv env;
    EXPECT_EQ(s->Update(1, 1, 1, 1, &env), 0);
    env.RefLine = &line;
    ASSERT_EQ(s->Update(1, 1, 1, 1, &env), 1);
    // Section X runs to the right of travel, which is -Y here; section Y is up.
    const CSectPoint* corner = s->GetSectPointPtr(1);
    EXPECT_NEAR(corner->GetXg(), 1020.0, 1e-9);
    EXPECT_NEAR(corner->GetYg(), 500.2, 1e-9);
    EXPECT_NEAR(corner->GetZg(), 9.6, 1e-9);
    const CSectPoint* top = s->GetSectPointPtr(3);
    EXPECT_NEAR(top->GetYg(), 499.8, 1e-9);
    EXPECT_NEAR(top->GetZg(), 10.4, 1e-9);
    // Hung by its corner point 1 instead, the corner is on the line.
    s->SetConnectType(3);
    s->SetConnectSectPointNo(1);
    ASSERT_EQ(s->UpdateKeySection(0, &env), 1);
    EXPECT_NEAR(corner->GetYg(), 500.0, 1e-9);
    EXPECT_NEAR(corner->GetZg(), 10.0, 1e-9);
    // Off the line there is no place for it.
    s->SetStationNo(150.0);
    EXPECT_EQ(s->UpdateKeySection(0, &env), 0);
}

TEST(SectionProp, CreepNumberByCode) {
    // C35/45: fcm = 43 MPa, normal cement, h0 = 300 mm, RH = 70 %, loaded at 28 days, t = 10000.
    CConcrMatPar c;
    c.SetFcm(43000.0);
    c.SetFcck(30000.0);
    c.SetCementClass(2);
    CKeySection s(1, "Creep", 0.0);
    // NS-EN 1992 B.1, fcm > 35: α1 = (35/43)^0.7 = 0.86580, α2 = 0.95967, α3 = 0.90219;
    // φRH = (1 + 0.3/(0.1·300^⅓)·α1)·α2 = 1.33202; β(fcm) = 16.8/√43 = 2.56198;
    // β(t0) = 1/(0.1 + 28^0.2) = 0.48845; βH = 1.5·(1 + 0.84^18)·300 + 250·α3 = 695.058;
    // βc = (9972/(695.058 + 9972))^0.3 = 0.97999. φ = 1.33202·2.56198·0.48845·0.97999 = 1.63353.
    EXPECT_NEAR(s.GetCreepFactor(&c, 105, 10000, 28, 300, 0, 70), 1.63353, 1e-5);
    // The older formula with fck = 30: φRH = 1 + 0.3/(0.08·300^0.3333) = 1.56028;
    // β(fc) = 8.3/(√30 + 3) = 0.97909; β(t0) = 2.4/(0.1 + 28^0.18) = 1.24886;
    // βH = 1.5·(1 + 0.00012·1.4^18)·300 + 250 = 723.051; βc = 0.97922. φ = 1.86819.
    EXPECT_NEAR(s.GetCreepFactor(&c, 102, 10000, 28, 300, 0, 70), 1.86819, 1e-5);
    // h0 and RH from the section: 2A/u = 0.3 m and its 70 %; fck from the material's 30 MPa.
    s.SetEffectivThicness(0.3);
    EXPECT_NEAR(s.GetCreepFactor(&c, 102, 10000, 28, 0, 0, 0), 1.86819, 1e-5);
    EXPECT_EQ(s.GetCreepFactor(&c, 106, 10000, 28, 300, 30, 70), -99.0);
    EXPECT_EQ(s.GetCreepFactor(static_cast<const CConcrMatPar*>(nullptr), 105, 100, 28, 300, 0, 70),
              0.0);
    s.SetEffectivThicness(-1.0);
    EXPECT_EQ(s.GetCreepFactor(&c, 101, 10000, 28, 0, 0, 0), -99.0);

    // Through the project: its concrete 1 and its code.
    CStructure project(2);
    auto mat = std::make_unique<CConcrMatPar>(c);
    mat->SetNo(1);
    project.AddConcrMatPar(std::move(mat));
    project.SetConcrCode(105);
    EXPECT_NEAR(s.GetCreepFactor(&project, 10000, 28, 300, 0, 70), 1.63353, 1e-5);
    EXPECT_EQ(s.GetCreepFactor(static_cast<CStructure*>(nullptr), 10000, 28, 300, 0, 70), 0.0);
}
