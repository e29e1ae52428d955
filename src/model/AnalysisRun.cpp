#include "model/AnalysisRun.h"

#include "platform/Text.h"

namespace kelo {

CAnalysisRun::CAnalysisRun(CStructure* structure, CAnalysis* analysis, CModel* model,
                           CCalcGroup* group)
    : Structure(structure), Analysis(analysis), Model(model), CalcGroup(group) {}

void CAnalysisRun::UpdatePointers() {
    for (CElement* e : ElementList) {
        e->SetNodeNo1Ptr(NodeList.Get(e->GetNodeNo1()));
        e->SetNodeNo2Ptr(NodeList.Get(e->GetNodeNo2()));
        e->SetNodeNo3Ptr(e->GetNodeNo3() > 0 ? NodeList.Get(e->GetNodeNo3()) : nullptr);
        for (CAxial* a : e->GetAxialList()) a->SetElemPtr(e);
        for (CMass* m : e->GetMassList()) m->SetElemPtr(e);
    }
    for (CLoadcase* lc : LoadcaseList)
        for (CLoad* load : lc->GetLoadList())
            load->SetElemPtr(ElementList.Get(load->GetElementNo()));
}

int CAnalysisRun::IsModelComplete(std::string* a, std::string*) const {
    int complete = 1;
    auto report = [&](const std::string& text) {
        complete = 0;
        if (a) *a += text;
    };
    for (const CElement* e : ElementList) {
        if (e->GetNo() < 1) continue;
        const int nodes[3] = {e->GetNodeNo1(), e->GetNodeNo2(), e->GetNodeNo3()};
        for (int i = 0; i < 3; ++i) {
            const int node = nodes[i];
            // Node 3 only orients the local axes, and is often not given.
            if (i == 2 && node <= 0) continue;
            if (!NodeList.Has(node))
                report(Format("Element %i: node %i is not in the model!\r\n", e->GetNo(), node));
        }
    }
    for (const CNode* n : NodeList) {
        for (int dof = 0; dof < 6; ++dof) {
            const int master = -n->GetFix(dof);
            if (master > 0 && !NodeList.Has(master)) {
                report(
                    Format("Node %i: master node %i is not in the model!\r\n", n->GetNo(), master));
                break;
            }
        }
    }
    return complete;
}

void CAnalysisRun::Log(const std::string& text) const {
    if (Info) *Info += text;
}

void CAnalysisRun::LogError(const std::string& text) const {
    if (Errors)
        *Errors += text;
    else
        Log(text);
}

} // namespace kelo
