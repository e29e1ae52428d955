#include "command/MessageTable.h"

#include "platform/Text.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace kelo {

namespace {

struct StringEntry {
    int key;
    const char* norwegian;
    const char* english;
};

// Key groups: 1000-1061 words and sentence parts shared by many messages (subjects such as
// "Node number", predicates such as "is not defined!"); 1100-1102 parts of station messages;
// 1151-1173 whole sentences and predicates of single messages; 1301-1347 range errors of the
// messages 3100-3139 and 3170-3176 in that order; 1401-1408 labels; 1451-1513 value errors of
// the messages 3301-3356, 3360-3362 and 3366-3369 in that order; 2000-2018, 2100-2102 and 2300
// sentences of warnings and of the file message; 9999 the words of an unknown message.
constexpr StringEntry kStrings[] = {
    {1000, "Ukjent kommando i kommandolinjen!", "is not a valid command!"},
    {1001, "For mange verdier i kommandolinjen!", "Too many values in command line!"},
    {1002, "Syntaksfeil i anførselstegn for navn!", "Syntax error in quotation signs for name!"},
    {1003, "Mangler kobling til aktuell konstruksjon!", "No structure connected!"},
    {1004, "En eller flere av verdiene i kommandolinjen er ikke gyldige!",
     "One or more of the values in command line are not valid!"},
    {1005, "Ett eller flere av objektene det refereres til i kommandolinjen finnes ikke!",
     "One or more of the objects referred to in command line does not exist!"},
    {1006, "er ikke et gyldig verdi, alias eller uttrykk!",
     "is not a valid value, alias or expression!"},
    {1007, "er ikke et gyldig alias!", "is not a valid alias!"},
    {1008, "er et reservert alias!", "is a reserved alias!"},
    {1009, "er ikke definert!", "is not defined!"},
    {1010, "er kombinert med seg selv!", "is combined with itself!"},
    {1011, "!", "!"},
    {1012, "Referanselinje nummer", "Reference line number"},
    {1013, "Knutepunkt nummer", "Node number"},
    {1014, "Hovedknutepunkt nummer", "Master node number"},
    {1015, "Element nummer", "Element number"},
    {1016, "Lasttilfelle nummer", "Load case number"},
    {1017, "Lastkombinasjon nummer", "Load combination number"},
    {1018, "Sortert kombinasjon nummer", "Sorted combination number"},
    {1019, "Sortert kombinasjonslinje nummer", "Sorted combination line number"},
    {1020, "Trafikklast nummer", "Traffic load number"},
    {1021, "Trafikklinje nummer", "Traffic line number"},
    {1022, "Trafikkspor nummer", "Traffic track number"},
    {1023, "Modell nummer", "Model number"},
    {1024, "Beregningsgruppe nummer", "Calculation group number"},
    {1025, "Analyse nummer", "Analysis number"},
    {1026, "Analyseoppsett nummer", "Analysis setup number"},
    {1027, "Jordskjelvspekter nummer", "Earthquake spectrum number"},
    {1028, "Krypkombinasjon nummer", "Creep combination number"},
    {1029, "Snitt nummer", "Section number"},
    {1030, "Akse nummer", "Axis number"},
    {1031, "Tverrsnittspunkt nummer", "Section point number"},
    {1032, "Delareal nummer", "Sub area number"},
    {1033, "Armeringsgruppe nummer", "Reinforcement group number"},
    {1034, "Skjærarmeringsgruppe nummer", "Shear reinforcement group number"},
    {1035, "Spennkabelgruppe nummer", "Tendon group number"},
    {1036, "Spennkabel nummer", "Tendon number"},
    {1037, "Tilknyttet spennkabel nummer", "Connected tendon number"},
    {1038, "Armeringstype nummer", "Reinforcement type number"},
    {1039, "Betongmateriale nummer", "Concrete material number"},
    {1040, "Stålmateriale nummer", "Steel material number"},
    {1041, "Armeringsmateriale nummer", "Reinforcement material number"},
    {1042, "Spennstålmateriale nummer", "Tendon material number"},
    {1043, "Parametersett for betong nummer", "Concrete design parameter set number"},
    {1044, "Parametersett for stål nummer", "Steel design parameter set number"},
    {1045, "Parametersett for armering nummer", "Reinforcement design parameter set number"},
    {1046, "Parametersett for spennstål nummer", "Tendon design parameter set number"},
    {1047, "Parametersett for tverrsnitt nummer", "Section design parameter set number"},
    {1048, "Dimensjoneringsoppsett nummer", "Design setup number"},
    {1049, "Grensetilstand", "Limit state"},
    {1050, "Punkt nummer", "Point number"},
    {1051, "har ingen geometri!", "has no geometry!"},
    {1052, "er allerede i bruk og er ikke et trafikklasttilfelle!",
     "is already used and is not a traffic load case!"},
    {1053, "er koblet til en annen trafikklinje!", "is connected to another traffic line!"},
    {1054, "finnes og er ikke et eksternt lasttilfelle!",
     "exists and is not an external load case!"},
    {1055, "finnes og er ikke en ekstern lastkombinasjon!",
     "exists and is not an external load combination!"},
    {1056, "har ikke noe dimensjoneringssnitt i angitt posisjon!",
     "has no design section at the given position!"},
    {1057, "har ikke noe tverrsnitt!", "has no section!"},
    {1058, "har ingen elementer!", "has no elements!"},
    {1059, "har ingen lasttilfeller!", "has no load cases!"},
    {1060, "har ingen snitt!", "has no sections!"},
    {1061, "er ikke definert på spennkabelens referanselinje!",
     "is not defined on the reference line of the tendon!"},

    {1100, "Profilnummer", "Station number"},
    {1101, "ligger utenfor det definerte intervallet for referanselinje nummer",
     "is outside the defined interval for reference line number"},
    {1102, "på referanselinje", "on reference line"},

    {1151, "Angitt armeringstype er ikke med i trinntabellen!",
     "Specified reinforcement type is not included in step table!"},
    {1152, "Elementets M-retning er definert motsatt av referanselinjens retning!",
     "Element M-direction is defined opposite reference line direction!"},
    {1153, "Lasttilfellenummer er ikke definert!", "Load case number is not defined!"},
    {1154, "Knutepunkt 1 og knutepunkt 2 for elementet er samme knutepunkt!",
     "Node 1 og node 2 for element are same node!"},
    {1155, "Dimensjoner kan ikke angis for denne tverrsnittstypen!",
     "Dimensions can not be given for this section type!"},
    {1156, "er selv et slaveknutepunkt!", "is itself a slave node!"},
    {1157, "Feil fortegn for trinnverdi!", "Wrong sign for step value!"},
    {1158, "Ulovlig trinnverdi!", "Illegal step value!"},
    {1159, "gir en sirkulær referanse mellom lastkombinasjoner!",
     "gives a circular reference between load combinations!"},
    {1160, "gir en sirkulær referanse mellom sorterte kombinasjoner!",
     "gives a circular reference between sorted combinations!"},
    {1161, "Ugyldig type for horisontalsegment (må være 1, 2, 3, 11, 12 eller 13)!",
     "Not valid horizontal segment type (must be 1, 2, 3, 11, 12 or 13)!"},
    {1162, "Feil funnet i segmentverdiene!", "Errors found in segment values!"},
    {1163, "En søyle kan ikke stå på sin egen referanselinje!",
     "A column can not stand on its own reference line!"},
    {1164, "Søyletoppen må ligge over søylefoten!", "Column top must be above column bottom!"},
    {1165, "En søyle kan ikke stå på en annen søyle!", "A column can not stand on another column!"},
    {1166, "Søylens profilnummer ligger utenfor referanselinjen den står på!",
     "Column station is outside the parent reference line!"},
    {1167, "Ugyldig koordinattype (må være 1=startpunkt eller 2=etterfølgende punkt)!",
     "Not valid coordinate type (must be 1=start point or 2=following point)!"},
    {1168, "Største tillatte nummer for sortert kombinasjonslinje er 999!",
     "Maximum allowed sorted combination line number is 999!"},
    {1169, "Kan ikke slette knutepunkt som allerede er koblet til element nummer",
     "Can not delete node already connected to element number"},
    {1170, "ENDDO uten tilhørende DO!", "ENDDO without matching DO!"},
    {1171, "En eller flere av de angitte verdiene for armeringstype er ikke gyldige!",
     "One or more of the specified values for reinforcement type are not valid!"},
    {1172, "En eller flere av de angitte verdiene for spennkabeltype er ikke gyldige!",
     "One or more of the specified values for tendon type are not valid!"},
    {1173, "En eller flere av de angitte verdiene for panel er ikke gyldige!",
     "One or more of the specified values for panel are not valid!"},

    {1301, "Aksenummer må være større enn eller lik 0!",
     "Axis number must be greater than or equal to 0!"},
    {1302, "Referanselinjenummer må være større enn 0!",
     "Reference line number must be greater than 0!"},
    {1303, "Knutepunktnummer må være større enn 0!", "Node number must be greater than 0!"},
    {1304, "Snittnummer må være større enn 0!", "Section number must be greater than 0!"},
    {1305, "Elastisitetsmodulen må være større enn 0!", "Young's modulus must be greater than 0!"},
    {1306, "Tverrkontraksjonstallet må være mellom 0 og 0.5!",
     "Poisson's ratio must be between 0 and 0.5!"},
    {1307, "Tverrsnittsmålene må være større enn 0!", "Section messures must be greater than 0!"},
    {1308, "Elementnummer må være større enn 0!", "Element number must be greater than 0!"},
    {1309, "Lasttilfellenummer må være større enn 0!", "Load case number must be greater than 0!"},
    {1310, "Trafikklinjenummer må være større enn 0!",
     "Traffic line number must be greater than 0!"},
    {1311, "Trafikklastnummer må være større enn 0!",
     "Traffic load number must be greater than 0!"},
    {1312, "Spornummer må være større enn 0!", "Track number must be greater than 0!"},
    {1313, "Spekternummer må være større enn 0!", "Spectrum number must be greater than 0!"},
    {1314, "Krypkombinasjonsnummer må være større enn 0!",
     "Creep combination number must be greater than 0!"},
    {1315, "Nummer må være større enn 0!", "Number must be greater than 0!"},
    {1316, "Modellnummer må være større enn 0!", "Model number must be greater than 0!"},
    {1317, "Analysenummer må være større enn 0!", "Analysis number must be greater than 0!"},
    {1318, "Beregningsgruppenummer må være større enn 0!",
     "Calculation group number must be greater than 0!"},
    {1319, "Nummer for sortert kombinasjon må være større enn 0!",
     "Sorted combination number must be greater than 0!"},
    {1320, "Segmentnummer må være større enn 0!", "Segment number must be greater than 0!"},
    {1321, "Referanselinjenummer må være større enn 0 for geometridata!",
     "Reference line number must be greater than 0 for geometry data!"},
    {1322, "Søylens vinkel må være mellom -90 og 90 grader!",
     "Column angle must be between -90 and 90 degrees!"},
    {1323, "Koordinatpunktnummer må være større enn 0!",
     "Coordinate point number must be greater than 0!"},
    {1324, "Nummer for sortert kombinasjonslinje må være større enn 0!",
     "Sorted combination line number must be greater than 0!"},
    {1325, "Antall egenformer må være større enn 0!", "Number of modes must be greater than 0!"},
    {1326, "Armeringstypenummer må være større enn 0!",
     "Reinforcement type number must be greater than 0!"},
    {1327, "Gruppenummer må være større enn 0!", "Group number must be greater than 0!"},
    {1328, "hcef må være større enn 0!", "hcef must be greater than 0!"},
    {1329, "Punktnummer må være større enn 0!", "Point number must be greater than 0!"},
    {1330, "Delarealnummer må være større enn 0!", "Sub area number must be greater than 0!"},
    {1331, "Materialnummer må være større enn 0!", "Material number must be greater than 0!"},
    {1332, "Nummer for parametersett må være større enn 0!",
     "Design parameter set number must be greater than 0!"},
    {1333, "Nummer for dimensjoneringsoppsett må være større enn 0!",
     "Design setup number must be greater than 0!"},
    {1334, "Snittkraft-ID må være større enn 0!", "Section force ID must be greater than 0!"},
    {1335, "Spennkabelnummer må være større enn 0!", "Tendon number must be greater than 0!"},
    {1336, "Slutten av lastintervallet må være større enn starten!",
     "End of load interval must be greater than its start!"},
    {1337, "Ugyldige verdier for en eller flere av konvergensinnstillingene!",
     "Not valid values for one or more of the convergence settings!"},
    {1338, "Betongnormen må være mellom 101 og 106!",
     "Concrete design code must be between 101 and 106!"},
    {1339, "Stålnormen må være 201 eller 202!", "Steel design code must be 201 or 202!"},
    {1340, "Antall spennkabler må være større enn 0!", "Number of tendons must be greater than 0!"},
    {1341, "Tidspunkt t2 må være større enn tidspunkt t1!",
     "Time t2 must be greater than time t1!"},
    {1342, "Ugyldig type for vertikalsegment (må være 1, 2 eller 5)!",
     "Not valid vertical segment type (must be 1, 2 or 5)!"},
    {1343, "Spennkabelgruppenummer må være større enn 0!",
     "Tendon group number must be greater than 0!"},
    {1344, "Ugyldig spennkabeltype (må være 0=etteroppspent eller 1=føroppspent)!",
     "Not valid tendon type (must be 0=post-tensioned og 1=pre-tensioned!"},
    {1345,
     "Ugyldig verdi for trykkstavvinkel. Må være -1=minste vinkel, -2=største vinkel, eller "
     "mellom 21.8 og 63.5 grader!",
     "Not valid value for strut angle. Must be -1=minimum angle, -2=maximum angle, or between "
     "21.8 and 63.5 degrees!"},
    {1346, "Senteravstanden må være større enn 0!", "Spacing must be greater than 0!"},
    {1347, "Overdekningen må være større enn eller lik 0!",
     "Cover must be greater than or equal to 0!"},

    {1401, "Type = ", "Type = "},
    {1402, "x/l = ", "x/l = "},
    {1403, "Retn = ", "Dir = "},
    {1404, "Kode = ", "Code = "},
    {1405, "Metode = ", "Method = "},
    {1406, "Antype = ", "Antype = "},
    {1407, "Retning = ", "Direction = "},
    {1408, "Mat = ", "Mat = "},

    {1451, "er ikke et gyldig valg for referanselinjer!",
     "is not a valid selection for reference lines!"},
    {1452, "er ikke en gyldig leddkode for ende 1 (må være mellom 0 og 111111)!",
     "is not a valid joint code for end 1 (must be between 0 and 111111)!"},
    {1453, "er ikke en gyldig leddkode for ende 2 (må være mellom 0 og 111111)!",
     "is not a valid joint code for end 2 (must be between 0 and 111111)!"},
    {1454, "er ikke en gyldig tverrsnittstype for elementer!",
     "is not a valid section type for elements!"},
    {1455, "er ikke en gyldig kode for lokale akser (må være 1 til 5)!",
     "is not a valid local axis code (must be 1 to 5)!"},
    {1456, "er ikke definert og kan ikke brukes som knutepunkt 3!",
     "is not defined and can not be used as node 3!"},
    {1457, "er ikke en gyldig kode for N-retning (må være 1 til 6)!",
     "is not a valid N-direction code (must be 1 to 6)!"},
    {1458, "er ikke en gyldig verdi. x/l må være mellom 0 og 1!",
     "is not a valid value. x/l must be between 0 and 1!"},
    {1459, "er ikke en gyldig massetype (må være 1, 3, 4 eller 5)!",
     "is not a valid mass type (must be 1, 3, 4 or 5)!"},
    {1460, "er ikke en gyldig retning!", "is not a valid direction!"},
    {1461, "er ikke en gyldig verdi. Massen kan ikke være negativ!",
     "is not a valid value. Mass can not be negative!"},
    {1462, "kan ikke brukes med denne massetypen!", "can not be used with this mass type!"},
    {1463, "er ikke en gyldig lasttype!", "is not a valid load type!"},
    {1464, "er ikke gyldig for last langs referanselinje!",
     "is not valid for a load along a reference line!"},
    {1465, "er ikke en gyldig trafikklasttype (må være 1, 2, 3, 4 eller 6)!",
     "is not a valid traffic load type (must be 1, 2, 3, 4 or 6)!"},
    {1466, "er ikke en gyldig resultatkode (må være 1=lasttilfelle eller 2=lastkombinasjon)!",
     "is not a valid result code (must be 1=load case or 2=load combination)!"},
    {1467, "er ikke en gyldig aksialkrafttype (må være 1 eller 2)!",
     "is not a valid axial force type (must be 1 or 2)!"},
    {1468, "er ikke en gyldig modellkode (må være 1, -1, 3 eller -3)!",
     "is not a valid model code (must be 1, -1, 3 or -3)!"},
    {1469, "er ikke en gyldig type modellendring!", "is not a valid model modification type!"},
    {1470, "er ikke en gyldig type beregningsgruppe (må være 1 til 8)!",
     "is not a valid calculation group type (must be 1 to 8)!"},
    {1471, "er ikke et gyldig valg (må være 1=ULS, 2=PLS, 3=SLS eller 4=FLS)!",
     "is not a valid selection (must be 1=ULS, 2=PLS, 3=SLS or 4=FLS)!"},
    {1472, "er ikke en gyldig type lastkombinasjon!", "is not a valid load combination type!"},
    {1473, "er ikke en gyldig type sortert kombinasjon!",
     "is not a valid sorted combination type!"},
    {1474, "er ikke en gyldig kombinasjonsmetode!", "is not a valid combination method!"},
    {1475, "er ikke en gyldig søyletype (må være 1 til 4)!",
     "is not a valid column type (must be 1 to 4)!"},
    {1476, "er ikke en gyldig beregningskode for sorterte kombinasjonslinjer!",
     "is not a valid calculation code for sorted combination lines!"},
    {1477, "er ikke en gyldig analysetype (må være -1 eller 1 til 8)!",
     "is not a valid analysis type (must be -1 or 1 to 8)!"},
    {1478, "er ikke en gyldig kombinasjonskode (må være -1, 1, 2 eller 3)!",
     "is not a valid combination code (must be -1, 1, 2 or 3)!"},
    {1479, "er ikke en gyldig art av armeringstype!", "is not a valid kind of reinforcement type!"},
    {1480, "er ikke en gyldig polylinjetype!", "is not a valid polyline type!"},
    {1481, "er ikke en gyldig kode for tilknytning til flate!",
     "is not a valid face connection code!"},
    {1482, "er ikke en gyldig punkttype!", "is not a valid point type!"},
    {1483, "er ikke et gyldig punkt for denne polylinjen!",
     "is not a valid point for this polyline!"},
    {1484, "er ikke en gyldig skjærretning (må være 1 eller 2)!",
     "is not a valid shear direction (must be 1 or 2)!"},
    {1485, "er ikke en gyldig type torsjonsareal!", "is not a valid torsion area type!"},
    {1486, "er ikke en gyldig delarealtype!", "is not a valid sub area type!"},
    {1487, "er ikke en gyldig verdi for parameter nummer",
     "is not a valid value for parameter number"},
    {1488, "er ikke en gyldig objekttype for denne slettekommandoen!",
     "is not a valid item type for this delete command!"},
    {1489, "er ikke en gyldig utvalgskode (må være 1=knutepunkt eller 2=element)!",
     "is not a valid selection code (must be 1=node or 2=element)!"},
    {1490, "er ikke en gyldig type dimensjoneringsoppsett!", "is not a valid design setup type!"},
    {1491, "er ikke en gyldig dimensjoneringsnorm!", "is not a valid design code!"},
    {1492, "er ikke en gyldig diagramtype (må være 1 til 4)!",
     "is not a valid chart type (must be 1 to 4)!"},
    {1493, "er ikke en gyldig momentakse (må være 1, 2 eller 3)!",
     "is not a valid moment axis (must be 1, 2 or 3)!"},
    {1494, "er ikke et gyldig materialsett for dette tverrsnittet!",
     "is not a valid material set for this section!"},
    {1495, "er ikke en gyldig tilknytningskode!", "is not a valid connection code!"},
    {1496, "er ikke en gyldig geometritype for spennkabel (må være 0, 1 eller 2)!",
     "is not a valid tendon geometry type (must be 0, 1 or 2)!"},
    {1497, "er ikke en gyldig kurvetype for spennkabelgeometri (må være 1 til 4)!",
     "is not a valid curve type for tendon geometry (must be 1 to 4)!"},
    {1498, "er ikke en gyldig type tapsberegning for spennkabler!",
     "is not a valid loss calculation type for tendons!"},
    {1499, "er ikke en gyldig spennkabelart!", "is not a valid tendon kind!"},
    {1500, "er ikke en gyldig verdi for elastisitetsmodul eller tverrkontraksjonstall!",
     "is not a valid value for Young's modulus or Poisson's ratio!"},
    {1501, "er ikke et gyldig tverrsnittsmateriale (må være 0=NOMAT, 1=CONCR eller 2=STEEL)!",
     "is not a valid section material (must be 0=NOMAT, 1=CONCR or 2=STEEL)!"},
    {1502, "er ikke et gyldig tilknytningspunkt!", "is not a valid connection point!"},
    {1503, "er ikke en gyldig tilknytningstype (må være 1 eller 2)!",
     "is not a valid connection type (must be 1 or 2)!"},
    {1504, "Finner ikke, eller klarer ikke å åpne angitt inputfil:",
     "Unable to locate, or open specified input file:"},
    {1505, "er ikke en gyldig oppspenningskode!", "is not a valid stressing code!"},
    {1506, "er ikke en gyldig tverrsnittstype!", "is not a valid section type!"},
    {1507, "er ikke en gyldig type jordskjelvspekter!", "is not a valid earthquake spectrum type!"},
    {1508, "er ikke en gyldig jordskjelvnorm!", "is not a valid seismic code!"},
    {1509, "er ikke et gyldig dempningsforhold (må være større enn 0)!",
     "is not a valid damping ratio (must be greater than 0)!"},
    {1510, "må defineres før punktene!", "must be defined before its points!"},
    {1511, "er ikke en gyldig type spekterpunkt!", "is not a valid spectrum point type!"},
    {1512, "er ikke et gyldig spekterpunktnummer (må være større enn 0)!",
     "is not a valid spectrum point number (must be greater than 0)!"},
    {1513, "Punktnummer i jordskjelvspekter er for stort (maks 20)!",
     "Earthquake specter point number too large (max 20)!"},

    {2000, "Erstatter eksisterende koordinatpunktnummer!",
     "Replacing existing coordinate point number!"},
    {2001, "Erstatter eksisterende nummer for sortert kombinasjonslinje!",
     "Replacing existing sorted combination line number!"},
    {2002, "Erstatter eksisterende armeringstypenummer!",
     "Replacing existing reinforcement type number!"},
    {2003, "Erstatter eksisterende armeringsgruppenummer!",
     "Replacing existing reinforcement group number!"},
    {2004, "Erstatter eksisterende tverrsnittspunktnummer!",
     "Replacing existing section point number!"},
    {2005, "Erstatter eksisterende skjærarmeringsgruppenummer!",
     "Replacing existing shear reinforcement group number!"},
    {2006, "Erstatter eksisterende spennkabelgruppenummer!",
     "Replacing existing tendon group number!"},
    {2007, "Erstatter eksisterende spennkabelnummer!", "Replacing existing tendon number!"},
    {2008, "Trinnverdien er større enn intervallet!", "Step value larger than interval!"},
    {2009, "Siste verdi i intervallet nås ikke med trinnverdien!",
     "Last value of interval is not reached by the step value!"},
    {2010, "Erstatter eksisterende aksenummer!", "Replacing existing axis number!"},
    {2011, "Erstatter eksisterende referanselinjenummer!",
     "Replacing existing reference line number!"},
    {2012, "Erstatter eksisterende knutepunktnummer!", "Replacing existing node number!"},
    {2013, "har allerede en jordskjelvlast, som blir erstattet!",
     "already has an earthquake load, which is replaced!"},
    {2014, "har allerede snittkrefter i denne posisjonen, som blir erstattet!",
     "already has section forces at this position, which are replaced!"},
    {2015, "er ikke definert! Standardverdier blir brukt!",
     "is not defined! Default values are used!"},
    {2016, "finnes. Faktorene legges til de eksisterende lastfaktorene!",
     "exists. The factors are added to its load factors!"},
    {2017, "finnes. Nye lastfaktorer legges til!", "exists. New load factors are appended to it!"},
    {2018, "Erstatter eksisterende segmentnummer!", "Replacing existing segment number!"},

    {2100, "Flere knutepunkter er definert på samme sted!",
     "Several nodes defined at same location!"},
    {2101, "Flere elementer er definert med de samme knutepunktene!",
     "Several elements defined with the same nodes!"},
    {2102, "er ikke et gyldig valg for CLEAR (må være -1=ALL eller 1=RES)!",
     "is not a valid selection for CLEAR (must be -1=ALL or 1=RES)!"},

    {2300, "Klarer ikke å åpne fil med navn:", "Unable to open file with name:"},

    {9999, "Ukjent meldingsnummer!", "Unknown message number!"},
};

// The six shapes of a message; the words of a message fill the "%s" slots in order.
enum class Form { Words, WordsInt, WordsReal3Int, WordsReal0Int, QuotedText, NamedText };

constexpr const char* FormText(Form form) {
    switch (form) {
    case Form::Words:
        return "%s\r\n";
    case Form::WordsInt:
        return "%s %d %s\r\n";
    case Form::WordsReal3Int:
        return "%s %.3lf %s %d %s\r\n";
    case Form::WordsReal0Int:
        return "%s %.0lf %s %d %s\r\n";
    case Form::QuotedText:
        return "'%s' %s\r\n";
    case Form::NamedText:
        return "%s \"%s\"!\r\n";
    }
    return "%s\r\n";
}

struct MessageEntry {
    int number;
    Form form;
    int words[3];
    // A real form whose message has no use for the integer leaves the "%d" out.
    bool printsInt = true;
};

constexpr bool kNoInt = false;

// Key 0 is an empty word: the slot drops out.
constexpr MessageEntry kMessages[] = {
    {2001, Form::QuotedText, {1000}},
    {2002, Form::Words, {1001}},
    {2003, Form::QuotedText, {1007}},
    {2004, Form::QuotedText, {1008}},
    {2010, Form::WordsInt, {2010}},
    {2011, Form::WordsInt, {2011}},
    {2012, Form::WordsInt, {2012}},
    {2013, Form::WordsInt, {1016, 2013}},
    {2014, Form::WordsInt, {1015, 2014}},
    {2015, Form::WordsInt, {1026, 2015}},
    {2016, Form::WordsInt, {1017, 2016}},
    {2017, Form::WordsInt, {1018, 2017}},
    {2018, Form::WordsInt, {2018}},
    {2019, Form::WordsInt, {2000}},
    {2020, Form::WordsInt, {2001}},
    {2021, Form::WordsInt, {2002}},
    {2022, Form::WordsInt, {2003}},
    {2023, Form::WordsInt, {2004}},
    {2024, Form::WordsInt, {2005}},
    {2025, Form::WordsInt, {2006}},
    {2026, Form::WordsInt, {2007}},
    {2027, Form::WordsInt, {1015, 1009}},
    {2028, Form::WordsInt, {1017, 1009}},
    {2029, Form::WordsInt, {1016, 1009}},
    {2030, Form::WordsInt, {1018, 1009}},
    {2031, Form::WordsInt, {1020, 1009}},
    {2032, Form::WordsInt, {1019, 1009}},
    {2100, Form::Words, {2100}},
    {2101, Form::Words, {2101}},
    {2102, Form::WordsInt, {1404, 2102}},
    {2103, Form::Words, {1151}},
    {2104, Form::WordsReal3Int, {1100, 1101, 0}},
    {2105, Form::Words, {1152}},
    {2200, Form::Words, {2008}},
    {2201, Form::Words, {2009}},
    {2211, Form::WordsInt, {1013, 1009}},
    {2212, Form::WordsInt, {1014, 1009}},
    // The subject of this warning was never given words: it reads "<n> Load case number ...".
    {2214, Form::WordsInt, {0, 1153}},

    {3002, Form::Words, {1002}},
    {3003, Form::Words, {1003}},
    {3004, Form::Words, {1004}},
    {3005, Form::Words, {1005}},
    {3006, Form::QuotedText, {1006}},
    {3010, Form::WordsInt, {1012, 1009}},
    {3011, Form::WordsInt, {1013, 1009}},
    {3012, Form::WordsInt, {1012, 1051}},
    {3014, Form::Words, {1154}},
    {3015, Form::WordsReal3Int, {1029, 1102, 1009}},
    {3016, Form::WordsInt, {1021, 1009}},
    {3017, Form::WordsInt, {1016, 1052}},
    {3018, Form::WordsInt, {1020, 1053}},
    {3019, Form::WordsInt, {1027, 1009}},
    {3020, Form::WordsInt, {1013, 1009}},
    {3021, Form::WordsInt, {1016, 1054}},
    {3022, Form::WordsInt, {1017, 1055}},
    {3023, Form::WordsInt, {1015, 1056}},
    {3024, Form::WordsInt, {1015, 1057}},
    {3025, Form::WordsInt, {1023, 1058}},
    {3026, Form::WordsInt, {1023, 1009}},
    {3027, Form::WordsInt, {1024, 1059}},
    {3028, Form::WordsInt, {1024, 1009}},
    {3029, Form::WordsInt, {1026, 1009}},
    {3030, Form::WordsInt, {1022, 1009}},
    {3031, Form::WordsInt, {1030, 1009}},
    {3032, Form::WordsInt, {1038, 1009}},
    {3033, Form::WordsInt, {1041, 1009}},
    {3034, Form::WordsInt, {1045, 1009}},
    {3035, Form::WordsInt, {1032, 1009}},
    {3036, Form::WordsInt, {1030, 1061}},
    {3037, Form::WordsInt, {1033, 1009}},
    {3038, Form::WordsInt, {1048, 1009}},
    {3039, Form::WordsInt, {1048, 1060}},
    {3040, Form::WordsInt, {1034, 1009}},
    {3041, Form::WordsInt, {1035, 1009}},
    {3042, Form::WordsInt, {1042, 1009}},
    {3043, Form::WordsInt, {1046, 1009}},
    {3044, Form::WordsInt, {1037, 1009}},
    {3045, Form::WordsInt, {1039, 1009}},
    {3046, Form::WordsInt, {1043, 1009}},
    {3047, Form::WordsInt, {1047, 1009}},
    {3048, Form::WordsInt, {1036, 1009}},
    {3049, Form::WordsInt, {1025, 1009}},
    {3050, Form::WordsInt, {1040, 1009}},
    {3051, Form::WordsInt, {1044, 1009}},
    {3052, Form::WordsInt, {1031, 1009}},
    {3053, Form::WordsInt, {1018, 1009}},
    {3054, Form::WordsInt, {1028, 1009}},
    {3055, Form::Words, {1155}},
    {3056, Form::WordsInt, {1014, 1156}},

    {3100, Form::Words, {1301}},
    {3101, Form::Words, {1302}},
    {3102, Form::Words, {1303}},
    {3103, Form::Words, {1304}},
    {3104, Form::Words, {1305}},
    {3105, Form::Words, {1306}},
    {3106, Form::Words, {1307}},
    {3107, Form::Words, {1308}},
    {3108, Form::Words, {1309}},
    {3109, Form::Words, {1310}},
    {3110, Form::Words, {1311}},
    {3111, Form::Words, {1312}},
    {3112, Form::Words, {1313}},
    {3113, Form::Words, {1314}},
    {3114, Form::Words, {1315}},
    {3115, Form::Words, {1316}},
    {3116, Form::Words, {1317}},
    {3117, Form::Words, {1318}},
    {3118, Form::Words, {1319}},
    {3119, Form::Words, {1320}},
    {3120, Form::Words, {1321}},
    {3121, Form::Words, {1322}},
    {3122, Form::Words, {1323}},
    {3123, Form::Words, {1324}},
    {3124, Form::Words, {1325}},
    {3125, Form::Words, {1326}},
    {3126, Form::Words, {1327}},
    {3127, Form::Words, {1328}},
    {3128, Form::Words, {1329}},
    {3129, Form::Words, {1330}},
    {3130, Form::Words, {1331}},
    {3131, Form::Words, {1332}},
    {3132, Form::Words, {1333}},
    {3133, Form::Words, {1334}},
    {3134, Form::Words, {1335}},
    {3135, Form::Words, {1336}},
    {3136, Form::Words, {1337}},
    {3137, Form::Words, {1338}},
    {3138, Form::Words, {1339}},
    {3139, Form::Words, {1340}},
    {3170, Form::Words, {1341}},
    {3171, Form::Words, {1342}},
    {3172, Form::Words, {1343}},
    {3173, Form::Words, {1344}},
    {3174, Form::Words, {1345}},
    {3175, Form::Words, {1346}},
    {3176, Form::Words, {1347}},

    {3301, Form::WordsInt, {1401, 1451}},
    {3302, Form::WordsInt, {1404, 1452}},
    {3303, Form::WordsInt, {1404, 1453}},
    {3304, Form::WordsInt, {1401, 1454}},
    {3305, Form::WordsInt, {1404, 1455}},
    {3306, Form::WordsInt, {1013, 1456}},
    {3307, Form::WordsInt, {1407, 1457}},
    {3308, Form::WordsReal3Int, {1402, 1458}, kNoInt},
    {3309, Form::WordsInt, {1401, 1459}},
    {3310, Form::WordsInt, {1403, 1460}},
    {3311, Form::WordsReal3Int, {0, 1461}, kNoInt},
    {3312, Form::WordsInt, {1403, 1462}},
    {3313, Form::WordsInt, {1401, 1463}},
    {3314, Form::WordsInt, {1012, 1464}},
    {3315, Form::WordsInt, {1401, 1465}},
    {3316, Form::WordsInt, {1404, 1466}},
    {3317, Form::WordsInt, {1401, 1467}},
    {3318, Form::WordsInt, {1404, 1468}},
    {3319, Form::WordsInt, {1401, 1469}},
    {3320, Form::WordsInt, {1401, 1470}},
    {3321, Form::WordsInt, {1049, 1471}},
    {3322, Form::WordsInt, {1401, 1472}},
    {3323, Form::WordsInt, {1401, 1473}},
    {3324, Form::WordsInt, {1405, 1474}},
    {3325, Form::WordsInt, {1401, 1475}},
    {3326, Form::WordsInt, {1404, 1476}},
    {3327, Form::WordsInt, {1406, 1477}},
    {3328, Form::WordsInt, {1404, 1478}},
    {3329, Form::WordsInt, {1401, 1479}},
    {3330, Form::WordsInt, {1401, 1480}},
    {3331, Form::WordsInt, {1404, 1481}},
    {3332, Form::WordsInt, {1401, 1482}},
    {3333, Form::WordsInt, {1050, 1483}},
    {3334, Form::WordsInt, {1403, 1484}},
    {3335, Form::WordsInt, {1401, 1485}},
    {3336, Form::WordsInt, {1401, 1486}},
    {3337, Form::WordsReal3Int, {0, 1487, 0}},
    {3338, Form::WordsReal0Int, {0, 1488, 0}},
    {3339, Form::WordsInt, {1404, 1489}},
    {3340, Form::WordsInt, {1401, 1490}},
    {3341, Form::WordsInt, {1404, 1491}},
    {3342, Form::WordsInt, {1401, 1492}},
    {3343, Form::WordsInt, {1404, 1493}},
    {3344, Form::WordsInt, {1408, 1494}},
    {3345, Form::WordsInt, {1404, 1495}},
    {3346, Form::WordsInt, {1401, 1496}},
    {3347, Form::WordsInt, {1401, 1497}},
    {3348, Form::WordsInt, {1401, 1498}},
    {3349, Form::WordsInt, {1401, 1499}},
    {3350, Form::WordsReal3Int, {0, 1500}, kNoInt},
    {3351, Form::WordsInt, {1408, 1501}},
    {3352, Form::WordsInt, {1050, 1502}},
    {3353, Form::WordsInt, {1401, 1503}},
    {3354, Form::NamedText, {1504}},
    {3355, Form::WordsInt, {1404, 1505}},
    {3356, Form::WordsInt, {1401, 1506}},
    {3360, Form::WordsInt, {1401, 1507}},
    {3361, Form::WordsInt, {1404, 1508}},
    {3362, Form::WordsReal3Int, {0, 1509}, kNoInt},
    {3366, Form::WordsInt, {1027, 1510}},
    {3367, Form::WordsInt, {1401, 1511}},
    {3368, Form::WordsInt, {1050, 1512}},
    {3369, Form::Words, {1513}},

    {3500, Form::Words, {1157}},
    {3501, Form::Words, {1158}},
    {3503, Form::WordsInt, {1017, 1010}},
    {3504, Form::WordsInt, {1017, 1159}},
    {3505, Form::WordsInt, {1018, 1010}},
    {3506, Form::WordsInt, {1018, 1160}},
    {3507, Form::Words, {1161}},
    {3508, Form::Words, {1162}},
    {3509, Form::Words, {1163}},
    {3510, Form::Words, {1164}},
    {3511, Form::Words, {1165}},
    {3512, Form::Words, {1166}},
    {3513, Form::Words, {1167}},
    {3514, Form::Words, {1168}},
    {3515, Form::WordsInt, {1169, 1011}},
    {3516, Form::Words, {1170}},
    {3600, Form::Words, {1171}},
    {3601, Form::Words, {1172}},
    {3602, Form::Words, {1173}},
    {3700, Form::NamedText, {2300}},
};

constexpr int kUnknownMessageKey = 9999;

static_assert(std::ranges::is_sorted(kStrings, {}, &StringEntry::key));
static_assert(std::ranges::adjacent_find(kStrings, {}, &StringEntry::key) == std::end(kStrings));
static_assert(std::ranges::is_sorted(kMessages, {}, &MessageEntry::number));
static_assert(std::ranges::adjacent_find(kMessages, {}, &MessageEntry::number) ==
              std::end(kMessages));
static_assert(std::size(kMessages) == 219);

const MessageEntry* FindMessage(int number) {
    const auto* it = std::ranges::lower_bound(kMessages, number, {}, &MessageEntry::number);
    return it != std::end(kMessages) && it->number == number ? it : nullptr;
}

// Fills one blank-separated slot of a form. An empty result means the slot is left out.
std::string FillSlot(std::string_view slot, const MessageEntry& entry, int& word, int n, double x,
                     const std::string* text, int language) {
    if (slot == "%s") {
        const int key = word < 3 ? entry.words[word] : 0;
        ++word;
        return key != 0 ? GetString(key, language) : std::string();
    }
    if (slot == "%d") return entry.printsInt ? Format("%d", n) : std::string();
    if (slot == "%.3lf") return Format("%.3lf", x);
    if (slot == "%.0lf") return Format("%.0lf", x);
    if (slot == "'%s'") return text ? "'" + *text + "'" : std::string();
    if (slot == "\"%s\"!") return text ? "\"" + *text + "\"!" : std::string();
    return std::string(slot);
}

std::string Compose(const MessageEntry& entry, int n, double x, const std::string* text,
                    int language) {
    std::string_view form = FormText(entry.form);
    form.remove_suffix(2); // the closing "\r\n"
    std::string out;
    int word = 0;
    while (!form.empty()) {
        const std::size_t blank = form.find(' ');
        const std::string_view slot = form.substr(0, blank);
        form = blank == std::string_view::npos ? std::string_view() : form.substr(blank + 1);
        const std::string piece = FillSlot(slot, entry, word, n, x, text, language);
        if (piece.empty()) continue;
        // A closing exclamation mark stands right after the number it ends.
        if (!out.empty() && piece.front() != '!') out += ' ';
        out += piece;
    }
    return out + kCrLf;
}

} // namespace

std::string GetString(int key, int language) {
    const auto* it = std::ranges::lower_bound(kStrings, key, {}, &StringEntry::key);
    if (it == std::end(kStrings) || it->key != key) return std::string();
    return language == 1 ? it->norwegian : it->english;
}

int MessageSeverity(int number) {
    if (number < 2000) return 1;
    if (number < 3000) return 2;
    return 3;
}

std::string ComposeMessage(int number, int n, double x, const std::string* text, int language) {
    if (const MessageEntry* entry = FindMessage(number))
        return Compose(*entry, n, x, text, language);
    // Two messages of the reader itself stand outside the numbered table: a keyword that the
    // language no longer reads, and a line given to an interpreter without a project.
    if (number == 2000) {
        const std::string words = language == 1 ? "er en utgått kommando og leses ikke lenger!"
                                                : "is a retired command and is no longer read!";
        return (text ? "'" + *text + "' " : std::string()) + words + kCrLf;
    }
    if (number == 3000) return GetString(1003, language) + kCrLf;
    return GetString(kUnknownMessageKey, language) + kCrLf;
}

const std::vector<int>& AllMessageNumbers() {
    static const std::vector<int> numbers = [] {
        std::vector<int> all;
        all.reserve(std::size(kMessages));
        for (const MessageEntry& entry : kMessages) all.push_back(entry.number);
        return all;
    }();
    return numbers;
}

} // namespace kelo
