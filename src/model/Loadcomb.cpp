#include "model/Loadcomb.h"

namespace kelo {

void CLoadfactList::AddSumming(int no, int code, double fact) {
    for (CLoadfact* f : List) {
        if (f->GetNo() == no && f->GetCode() == code) {
            f->SetFact(f->GetFact() + fact);
            return;
        }
    }
    List.Emplace(no, code, fact);
}

} // namespace kelo
