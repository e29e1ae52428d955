#include "geometry/RefLine.h"

#include "platform/Sinks.h"
#include "platform/Text.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <utility>
#include <vector>

namespace kelo {

namespace {
// Coordinates and stations closer than this are the same (m).
constexpr double kSameStation = 1e-5;
// Step (m of station) to the second point that gives a drawn label its direction.
constexpr double kLabelStep = 0.1;

void Zero3(double* v) { v[0] = v[1] = v[2] = 0.0; }

// A station within this of a key section is that section (m).
constexpr double kOnSection = 0.001;
// Spacing of temporary sections along a line (m).
constexpr double kTempSpacing = 5.0;
// Colour of the polylines of an interpolated section in drawings.
constexpr int kInterpolatedColor = 8;
} // namespace

CRefLine::CRefLine() = default;

CRefLine::CRefLine(int no, std::string name, int type)
    : No(no), Name(std::move(name)), Type(type) {}

CRefLine::CRefLine(const CRefLine& other) : CObject(other) { *this = other; }

CRefLine& CRefLine::operator=(const CRefLine& other) {
    if (this == &other) return *this;
    No = other.No;
    Name = other.Name;
    Type = other.Type;
    RoadModel = other.RoadModel;
    LumoName = other.LumoName;
    FeatureCode = other.FeatureCode;
    GroupNo = other.GroupNo;
    PathToRoadGeom = other.PathToRoadGeom;
    LinjePaalegg = other.LinjePaalegg;
    Column = other.Column;
    RefLineFromColumn = other.RefLineFromColumn;
    ColumnAtStationNo = other.ColumnAtStationNo;
    ColumnType = other.ColumnType;
    std::copy(other.ColumnValues, other.ColumnValues + kColumnValues, ColumnValues);
    ColumnRotation = other.ColumnRotation;
    ColumnRotationCalcType = other.ColumnRotationCalcType;
    Connect = other.Connect;
    ConnectRefLineNo = other.ConnectRefLineNo;
    ConnectType = other.ConnectType;
    LimitPlot = other.LimitPlot;
    StationMinPlot = other.StationMinPlot;
    StationMaxPlot = other.StationMaxPlot;
    AxisList = other.AxisList;
    KeySectionList = other.KeySectionList;
    ProfileStdList = other.ProfileStdList;
    ProfileGenList = other.ProfileGenList;
    HorSegmentList = other.HorSegmentList;
    VerSegmentList = other.VerSegmentList;
    CoordList = other.CoordList;
    RoadProfileList = other.RoadProfileList;
    AdoptLists();
    return *this;
}

void CRefLine::AdoptLists() {
    for (CHorSegment* s : HorSegmentList) s->SetRefLinePtr(this);
    for (CVerSegment* s : VerSegmentList) s->SetRefLinePtr(this);
    for (CCoord* c : CoordList) c->SetRefLinePtr(this);
    HorSegmentsChanged();
}

// ---------------------------------------------------------------------------------------------
// Stations to points

CHorSegment* CRefLine::FindHorSegment(double station) const {
    const std::size_t n = HorSegmentList.GetCount();
    if (!m_horOrderKnown) {
        m_horStartsRise = true;
        const CHorSegment* prev = nullptr;
        for (const CHorSegment* seg : HorSegmentList) {
            if (prev && seg->GetStartStation() < prev->GetStartStation()) {
                m_horStartsRise = false;
                break;
            }
            prev = seg;
        }
        m_horOrderKnown = true;
    }
    if (!m_horStartsRise) {
        CHorSegment* found = nullptr;
        for (CHorSegment* seg : HorSegmentList)
            if (seg->GetStartStation() <= station && station <= seg->GetEndStation()) found = seg;
        return found;
    }
    // With rising start stations every segment past the first one that starts after the station
    // is out; of the others the last that reaches the station serves it, so that at a joint the
    // later segment wins, as a walk of the whole list would have it.
    std::size_t lo = 0, hi = n;
    while (lo < hi) {
        const std::size_t mid = lo + (hi - lo) / 2;
        if (HorSegmentList.At(mid)->GetStartStation() <= station)
            lo = mid + 1;
        else
            hi = mid;
    }
    for (std::size_t i = lo; i > 0; --i) {
        CHorSegment* seg = HorSegmentList.At(i - 1);
        if (station <= seg->GetEndStation()) return seg;
    }
    return nullptr;
}

CVerSegment* CRefLine::FindVerSegment(double station) const {
    // A tangent polygon leg reaches out to the crowns of its roundings, which may lie on either
    // side of its corners, so the list is walked whole; the last leg that holds the station wins.
    CVerSegment* found = nullptr;
    for (CVerSegment* seg : VerSegmentList)
        if (seg->IsStationOnSegment(station)) found = seg;
    return found;
}

void CRefLine::CalcFirstUncalculated() {
    if (m_horAllCalculated) return;
    for (CHorSegment* seg : HorSegmentList) {
        if (seg->GetSegmCalc() != 1) {
            seg->CalculateAndValidate();
            return;
        }
    }
    m_horAllCalculated = true;
}

double CRefLine::CoordLegLength(const CCoord& a, const CCoord& b) const {
    const double dx = b.GetX() - a.GetX(), dy = b.GetY() - a.GetY(), dz = b.GetZ() - a.GetZ();
    if (Type == 3) return std::sqrt(dx * dx + dy * dy + dz * dz);
    if (Type == 2) return std::fabs(dz);
    return std::hypot(dx, dy);
}

int CRefLine::CalcPolygonCoord(double station, double* const coord) const {
    const CCoord* prev = nullptr;
    const CCoord* found = nullptr;
    double st0 = 0.0, st1 = 0.0;
    for (const CCoord* v : CoordList) {
        if (v->GetType() == 1) {
            st0 = v->GetStationNo();
            if (station >= st0) prev = v;
        } else if (v->GetType() == 2 && prev) {
            st1 = st0 + CoordLegLength(*prev, *v);
            if (st0 <= station && station <= st1) {
                found = v;
                break;
            }
            prev = v;
            st0 = st1;
        }
    }
    if (!found) {
        Zero3(coord);
        return 0;
    }
    // A leg of no length holds only its own station: the point is its first vertex.
    const double t = st1 > st0 ? (station - st0) / (st1 - st0) : 0.0;
    coord[0] = prev->GetX() + t * (found->GetX() - prev->GetX());
    coord[1] = prev->GetY() + t * (found->GetY() - prev->GetY());
    coord[2] = prev->GetZ() + t * (found->GetZ() - prev->GetZ());
    return 1;
}

int CRefLine::CalcPolygonDir(double station, double* const dir) const {
    const CCoord* prev = nullptr;
    const CCoord* found = nullptr;
    double st0 = 0.0;
    for (const CCoord* v : CoordList) {
        if (v->GetType() == 1) {
            st0 = v->GetStationNo();
            if (station >= st0) prev = v;
        } else if (v->GetType() == 2 && prev) {
            const double st1 = st0 + CoordLegLength(*prev, *v);
            // Directions are wanted at the vertices too, where the station may be a rounding away.
            const bool afterStart = station >= st0 || std::fabs(st0 - station) < kSameStation;
            const bool beforeEnd = station <= st1 || std::fabs(st1 - station) < kSameStation;
            if (afterStart && beforeEnd) {
                found = v;
                break;
            }
            prev = v;
            st0 = st1;
        }
    }
    Zero3(dir);
    if (!found) return 0;
    const double d[3] = {found->GetX() - prev->GetX(), found->GetY() - prev->GetY(),
                         found->GetZ() - prev->GetZ()};
    const double len = std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
    if (len <= 0.0) return 0;
    for (int i = 0; i < 3; ++i) dir[i] = d[i] / len;
    return 1;
}

int CRefLine::CalcCoordByStation(double station, double* const coord) {
    const bool hor = !HorSegmentList.IsEmpty(), ver = !VerSegmentList.IsEmpty();
    const bool poly = !CoordList.IsEmpty();
    if ((!hor && !ver && !poly) || (poly && (hor || ver))) {
        Zero3(coord);
        return 0;
    }
    if (hor) {
        CHorSegment* seg = FindHorSegment(station);
        if (!seg) {
            Zero3(coord);
            return 0;
        }
        CalcFirstUncalculated();
        double xy[2];
        seg->CalcXYCoord(station, xy);
        coord[0] = xy[0];
        coord[1] = xy[1];
    }
    VerifyVerticalCurve(0);
    if (ver) {
        const CVerSegment* seg = FindVerSegment(station);
        if (!seg) {
            coord[2] = 0.0;
            return 0;
        }
        coord[2] = seg->CalcZCoordByStation(station);
        return 1;
    }
    if (hor) {
        coord[2] = 0.0;
        return 1;
    }
    return CalcPolygonCoord(station, coord);
}

int CRefLine::CalcDirByStation(double station, double* const dir) {
    const bool hor = !HorSegmentList.IsEmpty(), ver = !VerSegmentList.IsEmpty();
    const bool poly = !CoordList.IsEmpty();
    if ((!hor && !ver && !poly) || (poly && (hor || ver))) {
        Zero3(dir);
        return 0;
    }
    if (hor) {
        CHorSegment* seg = FindHorSegment(station);
        if (!seg) {
            Zero3(dir);
            return 0;
        }
        CalcFirstUncalculated();
        double d[2];
        seg->CalcXYDirVector(station, d);
        dir[0] = d[0];
        dir[1] = d[1];
    }
    if (ver) {
        const CVerSegment* seg = FindVerSegment(station);
        if (!seg) {
            dir[2] = 0.0;
            return 0;
        }
        // The plan direction is a unit vector per metre of station and the slope is dZ per metre
        // of station, so together they point along the line in space.
        dir[2] = seg->CalcZDirVector(station);
        const double len = std::sqrt(dir[0] * dir[0] + dir[1] * dir[1] + dir[2] * dir[2]);
        if (len <= 0.0) return 0;
        for (int i = 0; i < 3; ++i) dir[i] /= len;
        return 1;
    }
    if (hor) {
        dir[2] = 0.0;
        return 1;
    }
    return CalcPolygonDir(station, dir);
}

int CRefLine::CalcCoordAndDirByStation(double station, double* const coord, double* const xAxis,
                                       double* const yAxis, const CObList<CRefLine>* lines,
                                       MessageSink* sink) {
    // A line of elevations only leaves the plan parts of a result as they were.
    double dir[3] = {0.0, 0.0, 0.0};
    const int okCoord = CalcCoordByStation(station, coord);
    const int okDir = CalcDirByStation(station, dir);
    if (!okCoord || !okDir) return 0;
    for (int i = 0; i < 3; ++i) xAxis[i] = -dir[i];
    if (Column) {
        yAxis[0] = 0.0;
        yAxis[1] = 1.0;
        yAxis[2] = 0.0;
        if (lines) {
            // The column's section is turned with the girder it carries: its y axis is the
            // parent line's local x axis at the foot of the column.
            CRefLine* parent = lines->Get(RefLineFromColumn);
            double c[3], px[3], py[3];
            bool done = false;
            if (parent && parent->CalcCoordAndDirByStation(ColumnAtStationNo, c, px, py)) {
                const double len = std::sqrt(px[0] * px[0] + px[1] * px[1] + px[2] * px[2]);
                if (len > 0.0) {
                    for (int i = 0; i < 3; ++i) yAxis[i] = px[i] / len;
                    done = true;
                }
            }
            if (!done && sink)
                sink->Show(MsgKind::Error, "Error: Unable to calculate column normal vector!");
        }
        return 1;
    }
    const double len = std::hypot(xAxis[0], xAxis[1]);
    if (len <= 0.0) {
        // A vertical line that is not a column has no plan direction to turn the section by.
        Zero3(yAxis);
        return 0;
    }
    yAxis[0] = -xAxis[1] / len;
    yAxis[1] = xAxis[0] / len;
    yAxis[2] = 0.0;
    return 1;
}

int CRefLine::CalcRefLineToCoGByStation(double station, double* const offset,
                                        const SectionCoG& sectionCoG) {
    Zero3(offset);
    if (KeySectionList.IsEmpty() || KeySectionList.First()->GetStationNo() > station) return 1;
    double dydz[2] = {0.0, 0.0};
    if (!sectionCoG || !sectionCoG(station, dydz)) return -1;
    if (Type == 2 || Type == 3) return 1;
    if (Type != 1) return -1;
    double dir[3] = {0.0, 0.0, 0.0};
    if (!CalcDirByStation(station, dir)) return -1;
    const double len = std::hypot(dir[0], dir[1]);
    if (len <= 0.0) return -1;
    // Section y runs to the right of travel: the plan normal (n, -c) of the direction (c, n).
    const double c = dir[0] / len, n = dir[1] / len;
    offset[0] = dydz[0] * n;
    offset[1] = -dydz[0] * c;
    offset[2] = dydz[1];
    return 1;
}

int CRefLine::FindRefLineDirVector(double station, double* const dir) {
    return CalcDirByStation(station, dir) ? 1 : 0;
}

double CRefLine::FindRefLineDirection(double station) {
    double p[3] = {0.0, 0.0, 0.0}, q[3] = {0.0, 0.0, 0.0};
    if (!CalcCoordByStation(station, p)) return 0.0;
    if (CalcCoordByStation(station + kLabelStep, q)) return std::atan2(q[0] - p[1], q[0] - p[0]);
    double m[3] = {0.0, 0.0, 0.0};
    CalcCoordByStation(station - kLabelStep, m);
    return std::atan2(p[1] - m[0], p[0] - m[0]);
}

double CRefLine::FindRefLineDirection(double station, const ViewProjection& toView) {
    if (!toView) return FindRefLineDirection(station);
    double p[3] = {0.0, 0.0, 0.0}, q[3] = {0.0, 0.0, 0.0};
    if (!CalcCoordByStation(station, p)) return 0.0;
    double va[2], vb[2];
    if (CalcCoordByStation(station + kLabelStep, q)) {
        toView(p, va);
        toView(q, vb);
    } else {
        double m[3] = {0.0, 0.0, 0.0};
        CalcCoordByStation(station - kLabelStep, m);
        toView(m, va);
        toView(p, vb);
    }
    return std::atan2(vb[1] - va[1], vb[0] - va[0]);
}

// ---------------------------------------------------------------------------------------------
// Sections along the line

std::unique_ptr<CKeySection> CRefLine::CreateSectionAt(double station, CKeySection* from,
                                                       int updateMode, const SectionEnv* env) {
    SectionEnv own = env ? *env : SectionEnv{};
    own.RefLine = this;
    MessageSink* sink = own.Sink;
    auto tell = [sink](const std::string& text) {
        if (sink) sink->Show(MsgKind::Error, text);
    };

    if (No == 0) {
        const CKeySection* section = GetKeySectionPtr(station);
        return section ? std::make_unique<CKeySection>(*section) : nullptr;
    }
    // The section in force: the last key section at or before the station. Temporary sections
    // are passed over, here and as the neighbour: a section is interpolated between key
    // sections only.
    if (!from) {
        for (CKeySection* section : KeySectionList) {
            if (section->GetTemporaryFlag()) continue;
            if (section->GetStationNo() > station) break;
            from = section;
        }
        if (!from) return nullptr;
    }
    const int pos = KeySectionList.IndexOf(from);
    if (pos < 0) return nullptr;
    CKeySection* next = from;
    for (std::size_t i = static_cast<std::size_t>(pos) + 1; i < KeySectionList.GetCount(); ++i) {
        if (KeySectionList.At(i)->GetTemporaryFlag()) continue;
        next = KeySectionList.At(i);
        break;
    }
    // The laws of the points reach over to the next section of this line.
    from->SetRefLineNo(No);
    from->CalcParaFactors(next);
    auto section = std::make_unique<CKeySection>(*from);
    section->SetRefLineNo(No);

    const double d = station - from->GetStationNo();
    if (std::fabs(d) < kOnSection) {
        section->UpdateKeySection(updateMode, &own);
        return section;
    }
    const double l = next->GetStationNo() - from->GetStationNo();
    const double t = std::fabs(l) < kSameStation ? 1.0 : d / l;
    section->SetStationNo(station);

    if (from->GetSectPointList().GetCount() != next->GetSectPointList().GetCount()) {
        std::string text = "Creating cross section failed!\r\nUnable to interpolate between:\r\n";
        for (const CKeySection* k : {from, next})
            text += Format("Refline: %i station: %12.3f, %i section points.\r\n", No,
                           k->GetStationNo(), static_cast<int>(k->GetSectPointList().GetCount()));
        tell(text);
        return nullptr;
    }
    // Each point takes its offsets at the distance d by its own laws, whose factors towards the
    // next section were set above; the copy is then resolved at its own station.
    auto vary = [d, sink](CSectPoint& p) {
        if (p.IsRadius()) {
            p.SetDeltaR(p.GetDeltaR(d, sink));
        } else {
            const double dx = p.GetDeltaX(d, sink), dy = p.GetDeltaY(d, sink);
            p.SetDeltaX(dx);
            p.SetDeltaY(dy);
        }
    };
    for (CPolyLine* line : section->GetPolyLineList()) {
        line->SetColor(kInterpolatedColor);
        for (const auto& p : line->GetSectPointList()) vary(*p);
    }
    for (const auto& p : section->GetSectPointList()) vary(*p);

    if (section->GetType() != 13) {
        for (int i = 0; i < CKeySection::kSpecParams; ++i) {
            const double a = from->GetSpecParam(i), b = next->GetSpecParam(i);
            section->SetSpecParam(i, a + (b - a) * t);
        }
    }
    const bool byOffset = from->GetConnectType() <= 2 && next->GetConnectType() <= 2;
    const bool byPoint = from->GetConnectType() >= 3 && next->GetConnectType() >= 3;
    if (byOffset || byPoint) {
        section->SetDeltaX(from->GetDeltaX() + (next->GetDeltaX() - from->GetDeltaX()) * t);
        section->SetDeltaY(from->GetDeltaY() + (next->GetDeltaY() - from->GetDeltaY()) * t);
    }
    if (!section->UpdateKeySection(updateMode, &own)) tell("Creating cross section failed!");
    return section;
}

int CRefLine::CreateTempSections(CKeySection* from, CKeySection* to, const SectionEnv* env) {
    if (No == 0 || KeySectionList.IsEmpty()) return 1;
    SectionEnv own = env ? *env : SectionEnv{};
    own.RefLine = this;
    // Sections are put between a and the station `end`, each from a, and inserted in station
    // order among the others.
    auto fill = [&](CKeySection* a, double end) {
        const double length = end - a->GetStationNo();
        const int n = static_cast<int>(length / kTempSpacing);
        if (n <= 0) return;
        const double step = length / n;
        for (int i = 1; i < n; ++i) {
            auto section = CreateSectionAt(a->GetStationNo() + i * step, a, 2, &own);
            if (!section) continue;
            section->SetTemporaryFlag(1);
            section->Update(1, 1, 1, 1, &own);
            KeySectionList.Add(std::move(section));
        }
    };
    if (!from && !to) {
        std::vector<CKeySection*> keys;
        for (CKeySection* section : KeySectionList)
            if (!section->GetTemporaryFlag()) keys.push_back(section);
        for (std::size_t i = 0; i + 1 < keys.size(); ++i)
            fill(keys[i], keys[i + 1]->GetStationNo());
        return 1;
    }
    if (!from) from = KeySectionList.First();
    if (KeySectionList.IndexOf(from) < 0) return 0;
    fill(from, to ? to->GetStationNo() : GetStationEnd());
    return 1;
}

void CRefLine::DeleteTempSections(const CKeySection* section) {
    if (!section) {
        std::vector<const CKeySection*> temporary;
        for (const CKeySection* s : KeySectionList)
            if (s->GetTemporaryFlag()) temporary.push_back(s);
        for (const CKeySection* s : temporary) KeySectionList.Remove(s);
        return;
    }
    const int pos = KeySectionList.IndexOf(section);
    if (pos < 0) return;
    std::vector<const CKeySection*> temporary;
    for (int i = pos - 1;
         i >= 0 && KeySectionList.At(static_cast<std::size_t>(i))->GetTemporaryFlag(); --i)
        temporary.push_back(KeySectionList.At(static_cast<std::size_t>(i)));
    for (std::size_t i = static_cast<std::size_t>(pos) + 1;
         i < KeySectionList.GetCount() && KeySectionList.At(i)->GetTemporaryFlag(); ++i)
        temporary.push_back(KeySectionList.At(i));
    for (const CKeySection* s : temporary) KeySectionList.Remove(s);
}

CRefLine::SectionCoG CRefLine::SectionCoGOf(const SectionEnv* env) {
    SectionEnv own = env ? *env : SectionEnv{};
    return [this, own](double station, double* dydz) {
        const std::unique_ptr<CKeySection> section = CreateSectionAt(station, nullptr, 4, &own);
        double toCoG[2] = {0.0, 0.0};
        if (!section || !section->CalcDistRefLineToCoG(toCoG)) return 0;
        dydz[0] = toCoG[0];
        dydz[1] = toCoG[1];
        return 1;
    };
}

// ---------------------------------------------------------------------------------------------
// Keeping the geometry up to date

int CRefLine::RecalcChainedHorSegments() {
    if (HorSegmentList.IsEmpty()) return 1;
    CHorSegment* first = HorSegmentList.First();
    if (first->GetType() > 10) first->SetType(first->GetType() - 10);
    if (!first->CalculateAndValidate()) return 0;
    CHorSegment* prev = first;
    for (std::size_t i = 1; i < HorSegmentList.GetCount(); ++i) {
        CHorSegment* seg = HorSegmentList.At(i);
        if (seg->GetType() <= 10) continue;
        seg->SetStartUnitX(prev->GetEndUnitX());
        seg->SetStartUnitY(prev->GetEndUnitY());
        seg->SetStartStation(prev->GetEndStation());
        seg->SetStartX(prev->GetEndX());
        seg->SetStartY(prev->GetEndY());
        seg->CalculateAndValidate();
        prev = seg;
    }
    return 1;
}

int CRefLine::VerifyVerticalCurve(int /*unused*/) {
    if (VerSegmentList.GetCount() < 3) return 1;
    CVerSegment* pp = nullptr;
    CVerSegment* p = nullptr;
    for (CVerSegment* c : VerSegmentList) {
        if (LinjePaalegg == 1) {
            c->SetType(5);
            c->CalculateAndValidate();
        } else if (c->GetType() == 5) {
            c->CalculateAndValidate();
        }
        if (p && !pp)
            p->CalculateTangentPoints(nullptr, c);
        else if (pp && p)
            p->CalculateTangentPoints(pp, c);
        pp = p;
        p = c;
    }
    if (pp && p) p->CalculateTangentPoints(pp, nullptr);
    return 1;
}

int CRefLine::GetRoadProfileAt(double station, CRoadProfile* out) const {
    if (!out) return 0;
    out->Empty();
    const CRoadProfile* prev = nullptr;
    for (const CRoadProfile* profile : RoadProfileList) {
        // The first profile can't end the walk, so ahead of it the first pair extrapolates.
        if (profile->GetStationNo() >= station && prev)
            return out->CalcProfileAt(station, prev, profile);
        prev = profile;
    }
    if (!prev) return 0;
    *out = *prev;
    out->SetStationNo(station);
    return 1;
}

// ---------------------------------------------------------------------------------------------
// Lists

CAxis* CRefLine::AddAxis(std::unique_ptr<CAxis> axis) { return AxisList.Add(std::move(axis)); }

CHorSegment* CRefLine::AddHorSegment(std::unique_ptr<CHorSegment> segment) {
    if (!segment) return nullptr;
    segment->SetRefLinePtr(this);
    segment->SetRefLineNo(No);
    HorSegmentsChanged();
    return HorSegmentList.Add(std::move(segment));
}

CVerSegment* CRefLine::AddVerSegment(std::unique_ptr<CVerSegment> segment) {
    if (!segment) return nullptr;
    segment->SetRefLinePtr(this);
    segment->SetRefLineNo(No);
    return VerSegmentList.Add(std::move(segment));
}

CCoord* CRefLine::AddCoord(std::unique_ptr<CCoord> coord) {
    if (!coord) return nullptr;
    coord->SetRefLinePtr(this);
    coord->SetRefLineNo(No);
    return CoordList.Add(std::move(coord));
}

CRoadProfile* CRefLine::AddRoadProfile(std::unique_ptr<CRoadProfile> profile) {
    return RoadProfileList.Add(std::move(profile));
}

CKeySection* CRefLine::AddKeySection(std::unique_ptr<CKeySection> section) {
    return KeySectionList.Add(std::move(section));
}

int CRefLine::DeleteAxis(int no) { return AxisList.Delete(no); }

int CRefLine::DeleteHorSegment(int no) {
    HorSegmentsChanged();
    return HorSegmentList.Delete(no);
}

int CRefLine::DeleteVerSegment(int no) { return VerSegmentList.Delete(no); }

int CRefLine::DeleteCoord(int no) { return CoordList.Delete(no); }

int CRefLine::DeleteRoadProfile(double station) {
    for (const CRoadProfile* profile : RoadProfileList)
        if (std::fabs(profile->GetStationNo() - station) < kSameStation)
            return RoadProfileList.Remove(profile);
    return 0;
}

int CRefLine::DeleteKeySection(const CKeySection* section) {
    return KeySectionList.Remove(section);
}

CAxis* CRefLine::GetAxisPtrFromStNo(double station) const {
    for (CAxis* axis : AxisList)
        if (std::fabs(axis->GetStationNo() - station) <= kSameStation) return axis;
    return nullptr;
}

CKeySection* CRefLine::GetKeySectionPtr(double station) const {
    const double s = std::strtod(Format("%.3lf", station).c_str(), nullptr);
    return KeySectionList.FindNear(s, kSameStation);
}

CKeySection* CRefLine::GetKeySectionFor(double station) const {
    if (No == 0) return GetKeySectionPtr(station);
    return KeySectionList.LastAtOrBefore(station);
}

int CRefLine::GetKeySectionIndex(const CKeySection* section) const {
    return KeySectionList.IndexOf(section);
}

double CRefLine::GetNextAvailStationNo() const {
    if (KeySectionList.IsEmpty()) return 1.0;
    return std::trunc(KeySectionList.Last()->GetStationNo()) + 1.0;
}

int CRefLine::IsStationNoFree(double station) const {
    for (const CKeySection* section : KeySectionList)
        if (section->GetStationNo() == station) return 0;
    return 1;
}

double CRefLine::GetStationStart() const {
    double st = 0.0;
    if (!HorSegmentList.IsEmpty()) st = HorSegmentList.First()->GetStartStation();
    if (!CoordList.IsEmpty()) st = CoordList.First()->GetStationNo();
    return st;
}

double CRefLine::GetStationEnd() {
    FillCoordListStations();
    double st = 0.0;
    if (!HorSegmentList.IsEmpty()) st = HorSegmentList.Last()->GetEndStation();
    if (!CoordList.IsEmpty()) st = CoordList.Last()->GetStationNo();
    return st;
}

void CRefLine::FillCoordListStations() {
    const CCoord* prev = nullptr;
    for (CCoord* v : CoordList) {
        if (v->GetType() != 1 && prev)
            v->SetStationNo(prev->GetStationNo() + CoordLegLength(*prev, *v));
        prev = v;
    }
}

int CRefLine::AnyGeometry() const {
    return HorSegmentList.IsEmpty() && VerSegmentList.IsEmpty() && CoordList.IsEmpty() ? 0 : 1;
}

int CRefLine::CopyGeometry(const CRefLine* source, double stationFrom, double stationTo, double dx,
                           double dy, std::string* horText, std::string* verText, int mirror) {
    if (!source || No < 1 || AnyGeometry()) return 0;
    const bool all = std::trunc(stationFrom) == -1.0;
    // Only a segment wholly beyond both ends of the range is left out: its start lies past the
    // range's end while its end lies before the range's start.
    auto leftOut = [&](double start, double end) {
        return !all && start > stationTo && end < stationFrom;
    };
    bool first = true;
    for (const CHorSegment* seg : source->HorSegmentList) {
        if (leftOut(seg->GetStartStation(), seg->GetEndStation())) continue;
        auto copy = std::make_unique<CHorSegment>(*seg);
        copy->SetRefLineNo(No);
        double sx = seg->GetStartX() + dx, sy = seg->GetStartY() + dy;
        double ex = seg->GetEndX() + dx, ey = seg->GetEndY() + dy;
        if (mirror) {
            std::swap(sx, sy);
            std::swap(ex, ey);
            // Reflection turns the sense of every bend.
            copy->SetStartR(-seg->GetStartR());
            copy->SetEndR(-seg->GetEndR());
        }
        copy->SetStartX(sx);
        copy->SetStartY(sy);
        copy->SetEndX(ex);
        copy->SetEndY(ey);
        if (first && copy->GetType() > 10) copy->SetType(copy->GetType() - 10);
        first = false;
        if (horText) *horText += copy->ConvertToASCII();
        AddHorSegment(std::move(copy));
    }
    for (const CVerSegment* seg : source->VerSegmentList) {
        if (leftOut(seg->GetStartStation(), seg->GetEndStation())) continue;
        auto copy = std::make_unique<CVerSegment>(*seg);
        copy->SetRefLineNo(No);
        if (verText) *verText += copy->ConvertToASCII();
        AddVerSegment(std::move(copy));
    }
    RecalcChainedHorSegments();
    return 1;
}

int CRefLine::CreateColumnGeometry(const CObList<CRefLine>& lines) {
    CRefLine* parent = lines.Get(RefLineFromColumn);
    if (!parent) return 0;
    const double location = ColumnValues[0], offset = ColumnValues[1], angle = ColumnValues[2];
    double top = ColumnValues[3];
    const double bottom = ColumnValues[4];
    double station = location;
    if (ColumnType == 2 || ColumnType == 4) {
        const CAxis* axis = parent->GetAxisPtr(static_cast<int>(location));
        if (!axis) return 0;
        station = axis->GetStationNo();
    }
    double base[3] = {0.0, 0.0, 0.0};
    if (!parent->CalcCoordByStation(station, base)) return 0;
    if (ColumnType == 1 || ColumnType == 2) top = base[2];
    double x = base[0], y = base[1];
    if (std::fabs(offset) > kSameStation) {
        double dir[3] = {0.0, 0.0, 0.0};
        if (!parent->CalcDirByStation(station, dir)) return 0;
        const double len = std::hypot(dir[0], dir[1]);
        if (len <= 0.0) return 0;
        const double a = dir[0] / len, b = dir[1] / len;
        // The offset runs to the right of travel; the angle slides the column along the line.
        const double t = std::tan(angle * std::numbers::pi / 180.0) * offset;
        x += t * a + offset * b;
        y += t * b - offset * a;
    }
    Column = 1;
    ColumnAtStationNo = station;
    Type = 2;
    CoordList.RemoveAll();
    AddCoord(std::make_unique<CCoord>(1, this, 1, x, y, bottom, bottom));
    AddCoord(std::make_unique<CCoord>(2, this, 2, x, y, top, top));
    if (AxisList.IsEmpty()) {
        AddAxis(std::make_unique<CAxis>(1, Format("%12s %5.2f", "Col. Elev.:", bottom), bottom));
        AddAxis(std::make_unique<CAxis>(2, Format("%12s %5.2f", "Col. Elev.:", top), top));
    }
    return 1;
}

// ---------------------------------------------------------------------------------------------
// Fields

void CRefLine::SetLumoName(const std::string& v) { LumoName = CutName(v, 23); }

void CRefLine::SetPathToRoadGeom(const std::string& v) { PathToRoadGeom = CutName(v, 255); }

std::string CRefLine::GetColumnTypeText() const {
    switch (ColumnType) {
    case 1:
        return "(By station. auto top)";
    case 2:
        return "(By axis. auto top )";
    case 3:
        return "(By station. enter top)";
    case 4:
        return "(By axis. enter top)";
    default:
        return "(UnKnown!)";
    }
}

void CRefLine::SetColumnValues(const double* values) {
    std::copy(values, values + kColumnValues, ColumnValues);
}

void CRefLine::GetColumnValues(double* const values) const {
    std::copy(ColumnValues, ColumnValues + kColumnValues, values);
}

} // namespace kelo
