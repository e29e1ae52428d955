#include "geometry/SectPointList.h"

#include <algorithm>
#include <cmath>

namespace kelo {

namespace {
// Point numbers are reals written with a few decimals; within this they are the same number.
constexpr double kSameNumber = 1e-5;
} // namespace

CSectPointList& CSectPointList::operator=(const CSectPointList& other) {
    if (this == &other) return *this;
    m_items.clear();
    m_items.reserve(other.m_items.size());
    for (const auto& p : other.m_items) m_items.push_back(std::make_unique<CSectPoint>(*p));
    return *this;
}

CSectPoint* CSectPointList::Add(std::unique_ptr<CSectPoint> point) {
    if (!point) return nullptr;
    m_items.push_back(std::move(point));
    return m_items.back().get();
}

CSectPoint* CSectPointList::InsertByNumber(std::unique_ptr<CSectPoint> point) {
    if (!point) return nullptr;
    const double no = point->GetNo();
    auto it = std::find_if(m_items.begin(), m_items.end(),
                           [no](const std::unique_ptr<CSectPoint>& p) { return p->GetNo() > no; });
    return m_items.insert(it, std::move(point))->get();
}

CSectPoint* CSectPointList::InsertAt(std::size_t pos, std::unique_ptr<CSectPoint> point) {
    if (!point) return nullptr;
    pos = std::min(pos, m_items.size());
    return m_items.insert(m_items.begin() + static_cast<std::ptrdiff_t>(pos), std::move(point))
        ->get();
}

void CSectPointList::RemoveAt(std::size_t pos) {
    if (pos < m_items.size()) m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(pos));
}

CSectPoint* CSectPointList::Find(double no) const {
    for (const auto& p : m_items)
        if (std::fabs(p->GetNo() - no) < kSameNumber) return p.get();
    return nullptr;
}

int CSectPointList::IndexOf(const CSectPoint* point) const {
    for (std::size_t i = 0; i < m_items.size(); ++i)
        if (m_items[i].get() == point) return static_cast<int>(i);
    return -1;
}

CSectPoint* CSectPointList::NextInRing(std::size_t pos) const {
    if (m_items.empty()) return nullptr;
    return m_items[(pos + 1) % m_items.size()].get();
}

CSectPoint* CSectPointList::PrevInRing(std::size_t pos) const {
    if (m_items.empty()) return nullptr;
    return m_items[(pos + m_items.size() - 1) % m_items.size()].get();
}

} // namespace kelo
