#include "model/Id.h"

#include "platform/Text.h"

#include <cmath>

namespace kelo {

int CId::IsEqual(const CId& other) const {
    if (Code != other.Code) return 0;
    for (int i = 0; i < 10; ++i)
        if (std::fabs(No[i] - other.No[i]) >= 1e-5) return 0;
    return 1;
}

int CId::IsWriteAllOfSameCode(const CId& other) const {
    if (Action != 5 && Action != 6 && Action != 99) return 0;
    if (other.Action != 5) return 0;
    static const int pairs[][2] = {{401, 402}, {403, 404}, {403, 405},
                                   {406, 407}, {501, 502}, {601, 602}};
    for (const auto& p : pairs)
        if (Code == p[0] && other.Code == p[1]) return 1;
    return 0;
}

void CId::GetIdString(std::string& out) const {
    out = Format("%-20s%-30s %3i  %9.3f  %9.3f  %9.3f\r\n", ActionName(Action), CodeName(Code),
                 ActiveApp, No[0], No[1], No[2]);
}

const char* CId::ActionName(int action) {
    switch (action) {
    case 0:
        return "BASE_GET";
    case 1:
        return "BASE_FIRST";
    case 2:
        return "BASE_NEXT";
    case 3:
        return "BASE_PREV";
    case 4:
        return "BASE_LAST";
    case 5:
        return "BASE_WRITE";
    case 6:
        return "BASE_UPDATE";
    case 7:
        return "BASE_CUT";
    case 8:
        return "BASE_COPY";
    case 9:
        return "BASE_PASTE";
    case 10:
        return "BASE_FIRST_NO_INDEX";
    case 11:
        return "BASE_NEXT_NO_INDEX";
    case 20:
        return "BASE_GET_ELEMENT";
    case 25:
        return "BASE_WRITE_ELEMENT";
    case 98:
        return "BASE_DEL_NO_INDEX";
    case 99:
        return "BASE_DELETE";
    // The write-first and update-first actions have words but no code reaches them.
    case -1005:
        return "BASE_WRITE_FIRST";
    case -1006:
        return "BASE_UPDATE_FIRST";
    default:
        return "UNKNOWN ACTION!!!!";
    }
}

namespace {
struct CodeWord {
    int code;
    const char* name;
};
const CodeWord kCodeWords[] = {
    {110, "CID_CONCR_MAT_PAR"},
    {111, "CID_ALL_CONCR_MAT_PAR"},
    {120, "CID_REINF_MAT_PAR"},
    {121, "CID_ALL_REINF_MAT_PAR"},
    {130, "CID_PREST_MAT_PAR"},
    {131, "CID_ALL_PREST_MAT_PAR"},
    {140, "CID_CONCR_DES_PAR"},
    {141, "CID_ALL_CONCR_DES_PAR"},
    {150, "CID_REINF_DES_PAR"},
    {151, "CID_ALL_REINF_DES_PAR"},
    {160, "CID_PREST_DES_PAR"},
    {161, "CID_ALL_PREST_DES_PAR"},
    {170, "CID_SECT_DES_PAR"},
    {171, "CID_ALL_SECT_DES_PAR"},
    {180, "CID_REINF_TYPE"},
    {181, "CID_ALL_REINF_TYPE"},
    {190, "CID_SHEAR_REINF_TYPE"},
    {191, "CID_ALL_SHEAR_REINF_TYPE"},
    {200, "CID_DESIGN_SETUP"},
    {201, "CID_ALL_DESIGN_SETUP"},
    {210, "CID_CHART"},
    {211, "CID_ALL_CHART"},
    {301, "CID_REF_LINE"},
    {302, "CID_ALL_REF_LINE"},
    {303, "CID_ALL_REF_LINE_GEOM"},
    {304, "CID_AXIS"},
    {305, "CID_ALL_AXIS"},
    {306, "CID_KEY_SECTION"},
    {307, "CID_ALL_FRAME_KEY_SECTIONS"},
    {308, "CID_POLY_LINE"},
    {309, "CID_SECTION_POINT"},
    {310, "CID_REINF_GROUP"},
    {311, "CID_PREST_GROUP"},
    {312, "CID_SHEAR_REINF"},
    {313, "CID_SHEAR_AREA"},
    {314, "CID_TORSION_AREA"},
    {315, "CID_SUB_AREA"},
    {401, "CID_NODE"},
    {402, "CID_ALL_NODES"},
    {403, "CID_ELEMENT"},
    {404, "CID_ALL_ELEMENTS"},
    {405, "CID_ALL_POS_ELEMENTS"},
    {406, "CID_DESIGN_SECT"},
    {407, "CID_ALL_DESIGN_SECT"},
    {501, "CID_LOADCASE"},
    {502, "CID_ALL_LOADCASES"},
    {503, "CID_TRAFLOAD"},
    {504, "CID_ALL_TRAFLOADS"},
    {505, "CID_TRAFLINE"},
    {506, "CID_ALL_TRAFLINES"},
    {507, "CID_DYNLOAD"},
    {508, "CID_ALL_DYNLOADS"},
    {510, "CID_ALL_CREEP_COMB"},
    {512, "CID_ALL_CREEP_LOAD"},
    {520, "CID_ALL_WIND_SPECTRAS"},
    {521, "CID_ALL_EQ_SPECTRAS"},
    {601, "CID_LOADCOMB"},
    {602, "CID_ALL_LOADCOMBS"},
    {603, "CID_ALL_ORD_LOADCOMB"},
    {604, "CID_SORT_COMB"},
    {605, "CID_ALL_SORT_COMB"},
    {606, "CID_SORT_COMB_LINE"},
    {607, "CID_ALL_SORT_COMB_LINE"},
    {701, "CID_MODELS"},
    {702, "CID_ALL_MODELS"},
    {703, "CID_CALC_GROUP"},
    {704, "CID_ALL_CALC_GROUP"},
    {705, "CID_ANALYSIS"},
    {706, "CID_ALL_ANALYSIS"},
    {707, "CID_ANSETUP"},
    {708, "CID_ALL_ANSETUP"},
    {801, "CID_CALC_SECTION_RES"},
    {802, "CID_ALL_CALC_SECTION_RES"},
    {803, "CID_ALL_EXT_DESIGN_FORCE"},
    {804, "CID_ALL_EXT_FRAME_DISPL"},
    {805, "CID_ALL_EXT_FRAME_FORCE"},
    {806, "CID_CALC_LOADCASE_RES"},
    {807, "CID_ALL_CALC_LOADCASE_RES"},
    {808, "CID_CALC_LOADCOMB_RES"},
    {809, "CID_ALL_CALC_LOADCOMB_RES"},
    {810, "CID_CALC_SORT_COMB_RES"},
    {811, "CID_ALL_CALC_SORT_COMB_RES"},
    {812, "CID_CALC_SORT_LINE_RES"},
    {813, "CID_ALL_CALC_SORT_LINE_RES"},
    {820, "CID_EIGEN_MODES"},
    {821, "CID_ALL_EIGEN_MODES"},
    {822, "CID_EIGEN_MODE_RES"},
    {823, "CID_ALL_EIGEN_MODE_RES"},
    {850, "CID_MODEL_ELEM_RES"},
    {851, "CID_ALL_MODEL_ELEM_RES"},
    {899, "CID_ALL_RESULTS"},
    {901, "CID_FRAME_DOC"},
    {902, "CID_DESIGN_DOC"},
};
} // namespace

const char* CId::CodeName(int code) {
    for (const auto& w : kCodeWords)
        if (w.code == code) return w.name;
    return "UNKNOWN CODE!!!!!!!!";
}

} // namespace kelo
