#include "model/Model.h"

#include "model/Structure.h"

#include <algorithm>
#include <cstdlib>

namespace kelo {

namespace {

int Truncate(double v) { return static_cast<int>(v); }

// Whether a number is one of a modification's interval. A missing last number with a missing step
// is the first number alone; a step's sign does not matter here.
bool InInterval(int no, const CModelModify& m) {
    const long long first = m.GetInterval(0);
    long long last = m.GetInterval(1);
    long long step = m.GetInterval(2);
    if (last == 0 && step == 0) last = first;
    if (step == 0) step = 1;
    const long long lo = std::min(first, last), hi = std::max(first, last);
    if (no < lo || no > hi) return false;
    return (no - first) % step == 0;
}

// The objects of a list that a modification's interval holds, in the order it walks them: upward,
// except that type 33 walks in the direction of its step, downward for a negative step from
// first down to last, and not at all against it.
template <class T> std::vector<T*> Walk(const CObList<T>& list, const CModelModify& m) {
    std::vector<T*> out;
    const int first = m.GetInterval(0), last = m.GetInterval(1), step = m.GetInterval(2);
    if (m.GetType() == 33 && step < 0 && last > first) return out;
    if (m.GetType() == 33 && step > 0 && last != 0 && last < first) return out;
    for (T* item : list)
        if (InInterval(item->KeyNo(), m)) out.push_back(item);
    if (m.GetType() == 33 && step < 0) std::reverse(out.begin(), out.end());
    return out;
}

void AddAxial(CElement& e, int type, double a, double b, double c) {
    auto axial = std::make_unique<CAxial>();
    axial->SetElementNo(e.GetNo());
    axial->SetType(type);
    if (type == 1) {
        axial->SetAxialValue(a);
        axial->SetMLValue(b);
        axial->SetMNValue(c);
    } else {
        axial->SetLoadcaseNo(Truncate(a));
        axial->SetLoadcaseFac(b);
    }
    axial->SetElemPtr(&e);
    e.GetAxialList().Add(std::move(axial));
}

} // namespace

int CModel::ExpandModel(const CStructure* s, CObList<CElement>& elements,
                        CObList<CNode>& nodes) const {
    elements.RemoveAll();
    nodes.RemoveAll();
    if (!s) return 0;
    if (Code == 0) {
        elements = *s->GetElementList();
        nodes = *s->GetNodeList();
        return 0;
    }
    const int elementsFound = ExpandElementList(s, elements);
    const int nodesFound = ExpandNodeList(s, elements, nodes);
    const int modified = ImplementModelModify(s, elements, nodes);
    return elementsFound && nodesFound && modified ? 1 : 0;
}

int CModel::ExpandElementList(const CStructure* s, CObList<CElement>& elements) const {
    int result = 1;
    for (int no : ElementNoArray) {
        const CElement* e = s->GetElementPtr(no);
        if (!e) {
            result = 0;
            continue;
        }
        elements.Add(std::make_unique<CElement>(*e));
    }
    return result;
}

int CModel::ExpandNodeList(const CStructure* s, const CObList<CElement>& elements,
                           CObList<CNode>& nodes) const {
    int result = 1;
    auto addNode = [&](int no) {
        if (nodes.Has(no)) return;
        const CNode* n = s->GetNodePtr(no);
        if (!n) {
            result = 0;
            return;
        }
        nodes.Add(std::make_unique<CNode>(*n));
    };
    for (const CElement* e : elements) {
        addNode(e->GetNodeNo1());
        addNode(e->GetNodeNo2());
        if (e->GetNodeNo3() > 0) addNode(e->GetNodeNo3());
    }
    return result;
}

int CModel::ImplementModelModify(const CStructure* s, CObList<CElement>& elements,
                                 CObList<CNode>& nodes) const {
    for (const CModelModify* m : ModelModifyList) {
        const int type = m->GetType();
        auto data = [m](int i) { return m->GetValues(i - 1); };
        if (type == 1 || type == 2) {
            for (CNode* node : Walk(nodes, *m)) {
                if (type == 1) {
                    // The code's digits, the highest first, are the freedoms X, Y, Z, RX, RY, RZ.
                    int code = Truncate(data(1));
                    for (int dof = 5; dof >= 0; --dof) {
                        node->SetFix(dof, code % 10);
                        code /= 10;
                    }
                } else {
                    const int dof = Truncate(data(1)) - 1;
                    const int value = Truncate(data(2));
                    node->SetFix(dof, value > 1 ? -value : value);
                }
            }
            continue;
        }
        CKeySection* section = nullptr;
        if (type == 11) {
            const CRefLine* line = s->GetRefLinePtr(Truncate(data(1)));
            section = line ? line->GetKeySectionPtr(data(2)) : nullptr;
            if (!section) return 0;
        }
        const bool known = type == 10 || type == 11 || type == 20 || type == 21 ||
                           (type >= 30 && type <= 33) || (type >= 40 && type <= 45);
        if (!known) return 0;
        for (CElement* e : Walk(elements, *m)) {
            const int no = e->GetNo();
            switch (type) {
            case 10:
                e->SetJoint1(data(1));
                e->SetJoint2(data(2));
                break;
            case 11:
                e->SetSectionNo(Truncate(data(2)));
                e->SetSectionPtr(section);
                break;
            case 20:
            case 21: {
                if (type == 21) e->GetMassList().RemoveAll();
                auto mass = std::make_unique<CMass>(no, Truncate(data(1)), Truncate(data(2)),
                                                    data(3), data(4));
                mass->SetElemPtr(e);
                e->GetMassList().Add(std::move(mass));
                break;
            }
            case 30:
            case 31:
                if (type == 31) e->GetAxialList().RemoveAll();
                AddAxial(*e, 1, data(1), data(2), data(3));
                break;
            case 32:
                e->GetAxialList().RemoveAll();
                AddAxial(*e, 2, data(1), data(2), 0.0);
                break;
            case 33:
                AddAxial(*e, 3, data(1), data(2), 0.0);
                break;
            case 40:
                for (int i = 0; i < 5; ++i) e->SetBucklingData(i, data(i + 1));
                break;
            default: // 41 to 45
                e->SetBucklingData(type - 41, data(1));
                break;
            }
        }
    }
    return 1;
}

} // namespace kelo
