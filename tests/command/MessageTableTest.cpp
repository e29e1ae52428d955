#include "command/MessageTable.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using namespace kelo;

namespace {

constexpr int kNorwegian = 1;
constexpr int kEnglish = 2;

std::string En(int number, int n = 0, double x = 0.0, const std::string* text = nullptr) {
    return ComposeMessage(number, n, x, text, kEnglish);
}

} // namespace

TEST(MessageTable, HoldsExactlyTheMessagesOfTheLanguage) {
    const std::vector<int> expected = {
        2001, 2002, 2003, 2004, 2010, 2011, 2012, 2013, 2014, 2015, 2016, 2017, 2018, 2019, 2020,
        2021, 2022, 2023, 2024, 2025, 2026, 2027, 2028, 2029, 2030, 2031, 2032, 2100, 2101, 2102,
        2103, 2104, 2105, 2200, 2201, 2211, 2212, 2214, 3002, 3003, 3004, 3005, 3006, 3010, 3011,
        3012, 3014, 3015, 3016, 3017, 3018, 3019, 3020, 3021, 3022, 3023, 3024, 3025, 3026, 3027,
        3028, 3029, 3030, 3031, 3032, 3033, 3034, 3035, 3036, 3037, 3038, 3039, 3040, 3041, 3042,
        3043, 3044, 3045, 3046, 3047, 3048, 3049, 3050, 3051, 3052, 3053, 3054, 3055, 3056, 3100,
        3101, 3102, 3103, 3104, 3105, 3106, 3107, 3108, 3109, 3110, 3111, 3112, 3113, 3114, 3115,
        3116, 3117, 3118, 3119, 3120, 3121, 3122, 3123, 3124, 3125, 3126, 3127, 3128, 3129, 3130,
        3131, 3132, 3133, 3134, 3135, 3136, 3137, 3138, 3139, 3170, 3171, 3172, 3173, 3174, 3175,
        3176, 3301, 3302, 3303, 3304, 3305, 3306, 3307, 3308, 3309, 3310, 3311, 3312, 3313, 3314,
        3315, 3316, 3317, 3318, 3319, 3320, 3321, 3322, 3323, 3324, 3325, 3326, 3327, 3328, 3329,
        3330, 3331, 3332, 3333, 3334, 3335, 3336, 3337, 3338, 3339, 3340, 3341, 3342, 3343, 3344,
        3345, 3346, 3347, 3348, 3349, 3350, 3351, 3352, 3353, 3354, 3355, 3356, 3360, 3361, 3362,
        3366, 3367, 3368, 3369, 3500, 3501, 3503, 3504, 3505, 3506, 3507, 3508, 3509, 3510, 3511,
        3512, 3513, 3514, 3515, 3516, 3600, 3601, 3602, 3700};
    ASSERT_EQ(expected.size(), 219u);
    EXPECT_EQ(AllMessageNumbers(), expected);
}

TEST(MessageTable, EveryMessageHasWordsInBothLanguages) {
    const std::string text = "NAME";
    const std::string unknownEn = En(1);
    const std::string unknownNo = ComposeMessage(1, 0, 0.0, nullptr, kNorwegian);
    for (int number : AllMessageNumbers()) {
        SCOPED_TRACE(number);
        const std::string en = ComposeMessage(number, 7, 2.5, &text, kEnglish);
        const std::string no = ComposeMessage(number, 7, 2.5, &text, kNorwegian);
        for (const std::string& words : {en, no}) {
            ASSERT_GT(words.size(), 4u);
            EXPECT_EQ(words.substr(words.size() - 2), "\r\n");
            EXPECT_NE(words[0], ' ');
            EXPECT_NE(words[words.size() - 3], ' ');
            EXPECT_EQ(words.find("\r\n"), words.size() - 2);
        }
        EXPECT_NE(en, unknownEn);
        EXPECT_NE(no, unknownNo);
        // A Norwegian text that equals the English one was left untranslated.
        EXPECT_NE(en, no);
    }
}

TEST(MessageTable, TellingRowsReadAsTheTableShows) {
    const std::string word = "FOO";
    const std::string file = "bridge.inp";
    const std::vector<std::pair<std::string, std::string>> rows = {
        {En(2001, 0, 0, &word), "'FOO' is not a valid command!\r\n"},
        {En(2002), "Too many values in command line!\r\n"},
        {En(2003, 0, 0, &word), "'FOO' is not a valid alias!\r\n"},
        {En(2004, 0, 0, &word), "'FOO' is a reserved alias!\r\n"},
        {En(2010, 4), "Replacing existing axis number! 4\r\n"},
        {En(2100), "Several nodes defined at same location!\r\n"},
        {En(2103), "Specified reinforcement type is not included in step table!\r\n"},
        {En(2104, 3, 1250.5),
         "Station number 1250.500 is outside the defined interval for reference line number "
         "3\r\n"},
        {En(2105), "Element M-direction is defined opposite reference line direction!\r\n"},
        {En(2200), "Step value larger than interval!\r\n"},
        {En(2211, 12), "Node number 12 is not defined!\r\n"},
        {En(2214, 5), "5 Load case number is not defined!\r\n"},
        {En(3002), "Syntax error in quotation signs for name!\r\n"},
        {En(3003), "No structure connected!\r\n"},
        {En(3004), "One or more of the values in command line are not valid!\r\n"},
        {En(3005), "One or more of the objects referred to in command line does not exist!\r\n"},
        {En(3006, 0, 0, &word), "'FOO' is not a valid value, alias or expression!\r\n"},
        {En(3010, 2), "Reference line number 2 is not defined!\r\n"},
        {En(3014), "Node 1 og node 2 for element are same node!\r\n"},
        {En(3015, 1, 10.0), "Section number 10.000 on reference line 1 is not defined!\r\n"},
        {En(3100), "Axis number must be greater than or equal to 0!\r\n"},
        {En(3104), "Young's modulus must be greater than 0!\r\n"},
        {En(3106), "Section messures must be greater than 0!\r\n"},
        {En(3127), "hcef must be greater than 0!\r\n"},
        {En(3136), "Not valid values for one or more of the convergence settings!\r\n"},
        {En(3173), "Not valid tendon type (must be 0=post-tensioned og 1=pre-tensioned!\r\n"},
        {En(3174), "Not valid value for strut angle. Must be -1=minimum angle, -2=maximum angle, "
                   "or between 21.8 and 63.5 degrees!\r\n"},
        {En(3301, 9), "Type =  9 is not a valid selection for reference lines!\r\n"},
        {En(3308, 0, 1.25), "x/l =  1.250 is not a valid value. x/l must be between 0 and 1!\r\n"},
        {En(3313, 77), "Type =  77 is not a valid load type!\r\n"},
        {En(3337, 4, -0.5), "-0.500 is not a valid value for parameter number 4\r\n"},
        {En(3338, 71, 3.0), "3 is not a valid item type for this delete command! 71\r\n"},
        {En(3354, 0, 0, &file), "Unable to locate, or open specified input file: "
                                "\"bridge.inp\"!\r\n"},
        {En(3369), "Earthquake specter point number too large (max 20)!\r\n"},
        {En(3500), "Wrong sign for step value!\r\n"},
        {En(3501), "Illegal step value!\r\n"},
        {En(3503, 6), "Load combination number 6 is combined with itself!\r\n"},
        {En(3508), "Errors found in segment values!\r\n"},
        {En(3514), "Maximum allowed sorted combination line number is 999!\r\n"},
        {En(3515, 8), "Can not delete node already connected to element number 8!\r\n"},
        {En(3516), "ENDDO without matching DO!\r\n"},
        {En(3600), "One or more of the specified values for reinforcement type are not "
                   "valid!\r\n"},
        {En(3700, 0, 0, &file), "Unable to open file with name: \"bridge.inp\"!\r\n"},
    };
    for (const auto& [actual, expected] : rows) EXPECT_EQ(actual, expected);
}

TEST(MessageTable, ArgumentsAreFormattedAsTheFormsSay) {
    // "%.0lf" rounds, "%.3lf" keeps three decimals, "%d" prints negative numbers as they are.
    EXPECT_EQ(En(3338, 1, 2.6), "3 is not a valid item type for this delete command! 1\r\n");
    EXPECT_EQ(En(3015, -1, 0.0004),
              "Section number 0.000 on reference line -1 is not defined!\r\n");
    // A real form that has no use for the integer leaves it out whatever it is.
    EXPECT_EQ(En(3308, 99, 2.0),
              "x/l =  2.000 is not a valid value. x/l must be between 0 and 1!\r\n");
    // A text that is not given leaves its quotes out; an empty one keeps them.
    EXPECT_EQ(En(2001), "is not a valid command!\r\n");
    EXPECT_EQ(En(3354), "Unable to locate, or open specified input file:\r\n");
    const std::string empty;
    EXPECT_EQ(En(2001, 0, 0, &empty), "'' is not a valid command!\r\n");
    EXPECT_EQ(En(3700, 0, 0, &empty), "Unable to open file with name: \"\"!\r\n");
    // Messages without a text slot ignore a text that is given.
    const std::string text = "X";
    EXPECT_EQ(En(3010, 2, 0, &text), "Reference line number 2 is not defined!\r\n");
}

TEST(MessageTable, SeverityFollowsTheNumberRange) {
    EXPECT_EQ(MessageSeverity(1101), 1);
    EXPECT_EQ(MessageSeverity(1999), 1);
    EXPECT_EQ(MessageSeverity(2000), 2);
    EXPECT_EQ(MessageSeverity(2999), 2);
    EXPECT_EQ(MessageSeverity(3000), 3);
    EXPECT_EQ(MessageSeverity(3999), 3);
    int warnings = 0;
    int errors = 0;
    for (int number : AllMessageNumbers()) {
        const int severity = MessageSeverity(number);
        warnings += severity == 2;
        errors += severity == 3;
    }
    EXPECT_EQ(warnings, 38);
    EXPECT_EQ(errors, 181);
}

TEST(MessageTable, UnknownNumbersAndKeys) {
    const std::string word = "NODEDEL";
    for (int number : {0, 1101, 2005, 2300, 3001, 3013, 3357, 3502, 4000}) {
        SCOPED_TRACE(number);
        EXPECT_EQ(En(number, 3, 1.0, &word), "Unknown message number!\r\n");
        EXPECT_EQ(ComposeMessage(number, 3, 1.0, &word, kNorwegian), "Ukjent meldingsnummer!\r\n");
    }
    // The reader's own two messages outside the table.
    EXPECT_EQ(En(2000, 0, 0.0, &word), "'NODEDEL' is a retired command and is no longer read!\r\n");
    EXPECT_EQ(En(3000, 0, 0.0, nullptr), "No structure connected!\r\n");
    for (int key : {0,    900,  999,  1062, 1099, 1103, 1150, 1174, 1300, 1348, 1400,
                    1409, 1450, 1514, 1999, 2019, 2099, 2103, 2299, 2301, 9998, 10000}) {
        SCOPED_TRACE(key);
        EXPECT_EQ(GetString(key, kEnglish), "");
        EXPECT_EQ(GetString(key, kNorwegian), "");
    }
}

TEST(MessageTable, KeysOfTheStringTableHaveWordsInBothLanguages) {
    const std::vector<std::pair<int, int>> ranges = {
        {1000, 1061}, {1100, 1102}, {1151, 1173}, {1301, 1347}, {1401, 1408},
        {1451, 1513}, {2000, 2018}, {2100, 2102}, {2300, 2300}, {9999, 9999}};
    for (const auto& [first, last] : ranges) {
        for (int key = first; key <= last; ++key) {
            SCOPED_TRACE(key);
            EXPECT_FALSE(GetString(key, kEnglish).empty());
            EXPECT_FALSE(GetString(key, kNorwegian).empty());
            // Only the closing mark and labels that are the same word in both languages may
            // read alike; any other equal pair was left untranslated.
            const bool alike =
                key == 1011 || key == 1401 || key == 1402 || key == 1406 || key == 1408;
            EXPECT_EQ(GetString(key, kEnglish) == GetString(key, kNorwegian), alike);
        }
    }
    const std::vector<std::string> labels = {"Type = ",   "x/l = ",    "Dir = ",       "Code = ",
                                             "Method = ", "Antype = ", "Direction = ", "Mat = "};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(GetString(1401 + i, kEnglish), labels[i]);
}

TEST(MessageTable, NorwegianWordsOfTheProduct) {
    EXPECT_EQ(GetString(1000, kNorwegian), "Ukjent kommando i kommandolinjen!");
    EXPECT_EQ(GetString(1001, kNorwegian), "For mange verdier i kommandolinjen!");
    EXPECT_EQ(GetString(1003, kNorwegian), "Mangler kobling til aktuell konstruksjon!");
    EXPECT_EQ(GetString(1006, kNorwegian), "er ikke et gyldig verdi, alias eller uttrykk!");
    const std::string word = "FOO";
    EXPECT_EQ(ComposeMessage(2001, 0, 0.0, &word, kNorwegian),
              "'FOO' Ukjent kommando i kommandolinjen!\r\n");
    EXPECT_EQ(ComposeMessage(2002, 0, 0.0, nullptr, kNorwegian),
              "For mange verdier i kommandolinjen!\r\n");
    EXPECT_EQ(ComposeMessage(3003, 0, 0.0, nullptr, kNorwegian),
              "Mangler kobling til aktuell konstruksjon!\r\n");
    EXPECT_EQ(ComposeMessage(3006, 0, 0.0, &word, kNorwegian),
              "'FOO' er ikke et gyldig verdi, alias eller uttrykk!\r\n");
    EXPECT_EQ(ComposeMessage(3010, 2, 0.0, nullptr, kNorwegian),
              "Referanselinje nummer 2 er ikke definert!\r\n");
    EXPECT_EQ(ComposeMessage(3301, 9, 0.0, nullptr, kNorwegian),
              "Type =  9 er ikke et gyldig valg for referanselinjer!\r\n");
    // Any language number other than 1 reads English.
    EXPECT_EQ(ComposeMessage(3003, 0, 0.0, nullptr, 0), "No structure connected!\r\n");
    EXPECT_EQ(GetString(1003, 7), "No structure connected!");
}
