#include "camjob/run/Accounts.h"
#include "camjob/run/LedgerRun.h"
#include "camjob/run/RunReport.h"

#include <numbers>
#include <set>

using namespace ledger;

namespace {

/// The operations of the only member, what was told with its line, and the accounts that have any.
std::string Show(const Ran& ran) {
    std::string text;
    const std::size_t begin = ran.orders.find("member ");
    if (begin != std::string::npos)
        text = ran.orders.substr(ran.orders.find('\n', begin) + 1);
    text = text.substr(0, text.find("end\n"));
    const Json& member = ran.document["members"][0];
    for (const Json& finding : member["findings"])
        text += finding["type"].get<std::string>() + " " + finding["line"].dump() + "\n";
    for (const Json& aside : member["setAside"])
        text += "aside " + aside["line"].dump() + " for " + aside["other"]["line"].dump() + "\n";
    for (const Json& note : ran.document["notes"])
        text += note["severity"].get<std::string>() + " " + note["line"].dump() + "\n";
    for (const auto& [name, count] : member["accounts"].items())
        if (count != 0)
            text += name + "=" + count.dump() + " ";
    return text;
}

struct Case {
    const char* name;
    const char* profile;  ///< name and code
    const char* length;
    const char* blocks;  ///< from line 22 on
    const char* shown;
};
// The face of the web is 200 high, that of a flange 65.
// clang-format off
const Case kCases[] = {
    {"WebCutBackAtBothEnds", kZ, "753", "AK\n  v 77 0\n  676 0\n  676 200\n  77 200\n  77 0\n",
     "trim face=web side=start at=77.000 code=\"SAW\"\ntrim face=web side=end at=676.000 code=\"SAW\"\nmade=1 "},
    {"FlangeEndsEarly", kZ, "1912", "AK\n  o 0 0\n  1842 0\n  1842 65\n  0 65\n  0 0\n", "uncovered_trim 23\nrefused=1 "},
    {"FlangeInTheMiddle", kZ, "2000", "AK\n  o 300 0\n  1800 0\n  1800 65\n  300 65\n  300 0\n",
     "uncovered_trim 23\nuncovered_trim 23\nrefused=1 "},
    {"TrimAndNotch", kZ, "1000", "AK\n  v 0 0\n  900 0\n  900 160\n  850 160\n  850 200\n  0 200\n  0 0\n",
     "notch face=web cut=external x=875.000 y=180.000 length=50.000 width=40.000 code=\"N\"\n"
     "trim face=web side=end at=900.000 code=\"SAW\"\nmade=1 "},
    {"TurnedRectangle", kPlate, "500", "AK\n  v 0 0\n  133 0\n  333 200\n  200 200\n  0 0\n", "unclear_cut 23\nwarning 23\nrefused=1 "},
    {"WedgeAlongASide", kZ, "1000", "AK\n  v 0 0\n  1000 0.04\n  1000 200\n  0 200\n  0 0\n", "unclear_cut 23\nrefused=1 "},
    {"LargerThanTheFace", kZ, "1000", "AK\n  v 0 0\n  1200 0\n  1200 200\n  0 200\n  0 0\n", "unclear_cut 23\nwarning 23\nrefused=1 "},
    {"CutsNothing", kZ, "1000", "AK\n  v 0 0\n  1000 0\n  1000 200\n  0 200\n  0 0\nAK\n  h 0 0\n  1000 0\n  1000 200\n  0 200\n  0 0\n", "made=2 "},
    {"PlateIsItsOutline", kPlate, "1000", "AK\n  v -100 0\n  100 0\n  100 200\n  -100 200\n  -100 0\nBO\n  v -50 100 18\n",
     "hole face=web x=-50.000 y=100.000 diameter=18.000 depth=0.000 thread=none code=\"H\"\nwarning 23\nwarning 23\nwarning 29\nmade=2 "},
    {"BackWallOfATube", kBox, "1000", "IK\n  v 100 50\n  200 50\n  200 90\n  100 90\n  100 50\nIK\n  h 100 50\n  200 50\n  200 90\n  100 90\n  100 50\n",
     "notch face=web cut=internal x=150.000 y=70.000 length=100.000 width=40.000 code=\"N\"\n"
     "notch face=web_back cut=internal x=150.000 y=70.000 length=100.000 width=40.000 code=\"N\"\nmade=2 "},
    {"BackOfASection", kZ, "1000", "IK\n  v 100 50\n  200 50\n  200 90\n  100 90\n  100 50\nIK\n  h 100 50\n  200 50\n  200 90\n  100 90\n  100 50\n",
     "notch face=web cut=internal x=150.000 y=70.000 length=100.000 width=40.000 code=\"N\"\nduplicate_notch 29\naside 29 for 23\nmade=1 set_aside=1 "},
    {"CircularOpening", kZ, "1000", "IK\n  v 510 100 10\n  490 100 10\n  510 100 0\n",
     "hole face=web x=500.000 y=100.000 diameter=20.000 depth=0.000 thread=none code=\"H\"\nnote 23\nmade=1 "},
    {"OpeningWithinACircle", kZ, "1000", "IK\n  v 510.04 100 9.99\n  500 109.98 9.99\n  490 100 10\n  500 90 10\n  510.04 100\n",
     "hole face=web x=500.020 y=99.992 diameter=20.008 depth=0.000 thread=none code=\"H\"\nnote 23\nmade=1 "},
    {"SawCut", kZ, "1000", "SC\n  1000 200 0 1 -1 0\n", "mitre end=end face=web angle=-45.000\nmade=1 "},
    {"SawCutsOfAlmostTheSameAngle", kZ, "1000", "SC\n  1000 200 0 1 -1 0\n  1000 200 0 1 -1.001 0\n  1000 200 0 1 -1.002 0\n  1000 200 0 1 -1.005 0\n",
     "mitre end=end face=web angle=-45.000\nmitre end=end face=web angle=-45.143\nmade=4 "},
    {"SawCutInTheMiddle", kZ, "1000", "SC\n  500 0 0 1 0 0\n", "unclear_cut 23\nrefused=1 "},
    {"SawCutThatPointsInwards", kZ, "1000", "SC\n  1000 0 0 -1 0 0\n", "unclear_cut 23\nrefused=1 "},
    {"MitresThatLeaveNothing", kZ, "150", "SC\n  0 0 0 -1 0.8 0\nSC\n  150 0 0 1 0.6 0\n", "unclear_cut 23\nunclear_cut 25\nrefused=2 "},
    {"SinkWithinTheTolerance", kZ, "1000", "BO\n  v 500 100 13\n  v 500.01 100s 26 6.5 0 0 90\n",
     "countersunk face=web x=500.000 y=100.000 diameter=13.000 depth=0.000 sink_diameter=26.000 sink_depth=6.500 sink_angle=90.000 code=\"K\"\nmade=2 "},
    {"SinkWithoutHole", kZ, "1000", "BO\n  v 500 100 13\n  v 510 100s 26 6.5 0 0 90\n", "lone_countersink 24\nrefused=1 not_made=1 "},
    {"SecondSink", kZ, "1000", "BO\n  v 500 100 13\n  v 500 100s 26 6.5 0 0 90\n  v 500 100s 30 6.5 0 0 90\n",
     "lone_countersink 25\nrefused=1 not_made=2 "},
    {"SinkOfARefusedHole", kZ, "1000", "BO\n  v 500 -20 13\n  v 500 -20s 26 6.5 0 0 90\n", "hole_outside 23\nhole_outside 24\nwarning 23\nwarning 24\nrefused=2 "},
    {"SinkNarrowerThanItsHole", kZ, "1000", "BO\n  v 500 100 13\n  v 500 100s 12 6.5 0 0 90\n", "lone_countersink 24\nrefused=1 not_made=1 "},
    {"SinkAsWideAsItsHole", kZ, "1000", "BO\n  v 500 100 13\n  v 500 100s 13 6.5 0 0 90\n",
     "countersunk face=web x=500.000 y=100.000 diameter=13.000 depth=0.000 sink_diameter=13.000 sink_depth=6.500 sink_angle=90.000 code=\"K\"\nmade=2 "},
    {"SinkThatIsASlot", kZ, "1000", "BO\n  v 500 100 13\n  v 490 100s 26 6.5l 20 0 0\n", "lone_countersink 24\nrefused=1 not_made=1 "},
    {"ThreadOfASlot", kZ, "1000", "BO\n  v 500 100g 18 0l 20 0 0\n", "slot face=web x=510.000 y=100.000 width=18.000 length=38.000 angle=0.000 depth=0.000 code=\"L\"\nwarning 23\nmade=1 "},
    {"SinkOfASlot", kZ, "1000", "BO\n  v 480 100 13 0l 40 0 0\n  v 500 100s 26 6.5 0 0 90\n", "lone_countersink 24\nrefused=1 not_made=1 "},
    {"SlotsInEachOther", kZ, "1000", "BO\n  v 500 100 20 0l 100 0 0\n  v 540 100 20 0l 100 0 0\n",
     "slot face=web x=550.000 y=100.000 width=20.000 length=120.000 angle=0.000 depth=0.000 code=\"L\"\nhole_inside_slot 24\naside 24 for 23\nmade=1 set_aside=1 "},
    {"EqualSlots", kZ, "1000", "BO\n  v 500 100 20 0l 100 0 0\n  v 500 100 20 0l 100 0 0\n",
     "slot face=web x=550.000 y=100.000 width=20.000 length=120.000 angle=0.000 depth=0.000 code=\"L\"\nduplicate_hole 24\naside 24 for 23\nmade=1 set_aside=1 "},
    {"HoleInTheMiddleOfASlot", kZ, "1000", "BO\n  v 500 100 20 0l 100 0 0\n  v 550 100 10\n",
     "slot face=web x=550.000 y=100.000 width=20.000 length=120.000 angle=0.000 depth=0.000 code=\"L\"\nhole_inside_slot 24\naside 24 for 23\nmade=1 set_aside=1 "},
    {"RefusedHoleAndItsRepetition", kZ, "1000", "BO\n  v 500 100 99\n  v 500 100 99\n", "duplicate_hole 23\nuncovered_hole 24\naside 23 for 24\nrefused=1 not_made=1 "},
    {"HoleBeyondTheWeb", kZ, "1000", "BO\n  v 500 100 18\n  v 500 250 18\n", "hole_outside 24\nwarning 24\nrefused=1 not_made=1 "},
    {"HoleBeyondTheEnd", kZ, "1000", "BO\n  v 1001 100 18\n", "hole_outside 23\nwarning 23\nrefused=1 "},
    {"HoleInWhatATrimTakes", kZ, "753", "AK\n  v 77 0\n  676 0\n  676 200\n  77 200\n  77 0\nBO\n  v 50 100 18\n", "hole_outside 29\nrefused=1 not_made=1 "},
    {"SlotsInWhatIsCutAway", kZ, "1000", "AK\n  v 0 0\n  1000 0\n  1000 100\n  900 100\n  900 200\n  0 200\n  0 0\nBO\n  v 920 120 20 0l 60 0 0\n  v 920 120 20 0l 40 0 30\n  v 880 160 10 0l 100 0 0\nSC\n  0 200 0 -1 -1 0\nBO\n  v 20 20 18 0l 60 0 90\n  v 20 120 18 0l 100 0 0\n", "hole_outside 37\nhole_outside 32\nhole_outside 31\nrefused=3 not_made=4 "},
    {"HoleThatRelievesACorner", kZ, "1000", "AK\n  v 0 0\n  1000 0\n  1000 160\n  950 160\n  950 200\n  0 200\n  0 0\nBO\n  v 955 165 18\n",
     "hole face=web x=955.000 y=165.000 diameter=18.000 depth=0.000 thread=none code=\"H\"\n"
     "notch face=web cut=external x=975.000 y=180.000 length=50.000 width=40.000 code=\"N\"\nmade=2 "},
    {"HolesAtAMitre", kZ, "1000", "SC\n  1000 200 0 1 -1 0\nBO\n  v 810 20 18\n  v 840 20 18\n  o 980 30 18\n  u 820 30 18\n", "hole_outside 26\nhole_outside 28\nrefused=2 not_made=3 "},
    {"TrapezoidOfEqualDiagonals", kZ, "1000", "AK\n  v 0 0\n  1000 0\n  1000 200\n  600 150\n  400 150\n  0 200\n  0 0\nIK\n  v 400 50\n  600 50\n  550 100\n  450 100\n  400 50\n",
     "outline face=web cut=external x=500.000 y=175.000 points=\"0.000,200.000 400.000,150.000 600.000,150.000 1000.000,200.000\" code=\"N\"\n"
     "outline face=web cut=internal x=500.000 y=75.000 points=\"400.000,50.000 600.000,50.000 550.000,100.000 450.000,100.000\" code=\"N\"\nmade=2 "},
    {"OpeningBeyondTheEnd", kZ, "1000", "IK\n  v 2000 50\n  2100 50\n  2100 90\n  2000 90\n  2000 50\n", "hole_outside 23\nwarning 23\nrefused=1 "},
    {"OpeningOverTheEdge", kZ, "1000", "IK\n  v 500 150\n  600 150\n  600 250\n  500 250\n  500 150\n", "hole_outside 23\nwarning 23\nrefused=1 "},
    {"OpeningWithoutArea", kZ, "1000", "IK\n  v 500 100\n  600 100\n  550 100.001\n  500 100\n", "unclear_cut 23\nwarning 23\nrefused=1 "},
    {"OutlineWithoutArea", kZ, "1000", "AK\n  v 0 0\n  1000 0\n  500 0.001\n  0 0\n", "unclear_cut 23\nwarning 23\nrefused=1 "},
    {"TwoOutlinesOfAFace", kZ, "1000", "AK\n  v 0 0\n  500 0\n  500 200\n  0 200\n  0 0\nAK\n  v 500 0\n  1000 0\n  1000 200\n  500 200\n  500 0\n",
     "unclear_cut 23\nunclear_cut 29\nnote 29\nrefused=2 "},
    {"RoundTube", kTube, "1000", "BO\n  v 500 239 18\n",
     "hole face=web x=500.000 y=239.000 diameter=18.000 depth=0.000 thread=none code=\"H\"\nmade=1 "},
    {"BeyondARoundTube", kTube, "1000", "BO\n  v 500 630 18\n", "hole_outside 23\nwarning 23\nrefused=1 "},
    {"BesideTheOtherViewsOfARoundTube", kTube, "1000", "BO\n  o 500 350 18\n  h 600 210 18\n  u 700 195 18\n  u 800 100 18\nIK\n  h 300 250\n  320 250\n  320 270\n  300 250\n",
     "hole_outside 28\nhole_outside 23\nhole_outside 25\nhole_outside 24\nwarning 23\nwarning 24\nwarning 28\nrefused=4 not_made=1 "},
    {"OtherViewsOfARoundTube", kTube, "1000", "AK\n  o 0 0\n  1000 0\n  1000 200\n  0 200\n  0 0\nBO\n  h 500 100 18\n",
     "hole face=web_back x=500.000 y=100.000 diameter=18.000 depth=0.000 thread=none code=\"H\"\nmade=2 "},
    {"PlanesOfARoundTube", kTube, "1000", "E1\n  0 0 200\n  100 0 200\n  0 100 200\nB1\n  500 50 18\nE2\n  0 0 0\n  100 0 0\n  0 70 70\nB2\n  500 50 18\nK2\n  5 5\n", "hole_outside 27\nhole_outside 33\nrefused=2 not_made=1 "},
    {"OutlineOfARoundTube", kTube, "1000", "AK\n  v 0 0\n  1000 0\n  1000 628.32\n  0 628.32\n  0 0\n", "made=1 "},
    {"MarksAndTexts", kZ, "1000", "KO\n  v 100 50\n  200 50\nSI\n  v 50 100 0 10r P1\nBO\n  v 900 50m 0 0\n", "note 23\nnot_for_machine=3 "},
    {"PlaneBetweenBottomAndTop", kZ, "1000", "BO\n  o 500 30 18\nE1\n  100 2.625 0\n  200 2.625 0\n  100 62.625 80\nB1\n  20 30 18\n",
     "hole face=top_flange x=500.000 y=30.000 diameter=18.000 depth=0.000 thread=none code=\"H\"\n"
     "hole face=top_flange x=120.000 y=30.000 diameter=18.000 depth=0.000 thread=none code=\"H\"\nunclear_plane 29\nnote 29\nmade=2 "},
    {"HolesOnASlope", kI, "1000", "E1\n  0 200 0\n  100 200 0\n  0 180 100\nB1\n  500 20 18\n  500 5000 18\n", "hole_outside 28\nrefused=1 not_made=1 "},
    {"OpeningsOnASlope", kI, "1000", "E1\n  0 200 0\n  100 200 0\n  0 180 100\nI1\n  500 10\n  540 10\n  540 30\n  500 30\n  500 10\nI1\n  700 10\n  740 10\n  720 30\n  700 10\n",
     "notch face=sloped_top_flange cut=internal x=520.000 y=46.287 length=40.000 width=20.000 code=\"N\"\n"
     "outline face=sloped_top_flange cut=internal x=720.000 y=49.621 points=\"700.000,56.287 740.000,56.287 720.000,36.287\" code=\"N\"\nmade=2 "},
    {"OutlineOnASlopeOfAnI", kI, "1000", "E1\n  0 200 0\n  100 200 0\n  0 180 100\nA1\n  0 0\n  500 0\n  500 50\n  0 50\n  0 0\n", "unclear_cut 27\nrefused=1 "},
    {"EdgeOfAPlate", kPlate, "1000", "AK\n  o 0 0\n  500 0\n  500 50\n  0 50\n  0 0\nBO\n  o 500 1 2\n  o 500 50 18\n", "unclear_cut 23\nhole_outside 30\nuncovered_hole 29\nwarning 23\nwarning 30\nrefused=3 "},
    {"HolesAtAMitreOfAPlate", kPlate, "1000", "SC\n  1000 200 0 1 -1 0\nBO\n  v 810 20 18\n  v 840 20 18\n", "hole_outside 26\nrefused=1 not_made=2 "},
    {"HoleAtAMitreOfARoundTube", kTube, "1000", "SC\n  1000 200 0 1 -1 0\nBO\n  v 960 180 18\n", "hole face=web x=960.000 y=180.000 diameter=18.000 depth=0.000 thread=none code=\"H\"\nmitre end=end face=web angle=-45.000\nnote 25\nmade=2 "},
    {"SlotBeyondTheEnd", kZ, "1000", "BO\n  v 820 100 18 0l 350 0 0\n  v 820 100 18 0l 160 0 0\n", "hole_outside 23\nrefused=1 not_made=1 "},
    {"HoleOverTheEdge", kZ, "1000", "BO\n  v 500 191 18\n  v 600 195 18\n", "hole_outside 24\nrefused=1 not_made=1 "},
    {"CircleOverTheEdge", kZ, "1000", "IK\n  v 510 195 10\n  490 195 10\n  510 195 0\n", "hole_outside 23\nwarning 23\nnote 23\nrefused=1 "},
    {"HoleThatRelievesACornerOfAPlate", kPlate, "1000", "AK\n  v 0 0\n  1000 0\n  1000 160\n  950 160\n  950 200\n  0 200\n  0 0\nBO\n  v 949 159 18\n", "hole face=web x=949.000 y=159.000 diameter=18.000 depth=0.000 thread=none code=\"H\"\nnotch face=web cut=external x=975.000 y=180.000 length=50.000 width=40.000 code=\"N\"\nmade=2 "},
    {"OutlinesOfEqualBoxAndArea", kZ, "1000", "AK\n  v 50 0\n  1000 0\n  1000 200\n  0 200\n  0 40\n  50 40\n  50 0\nAK\n  v 0 0\n  1000 0\n  1000 160\n  950 160\n  950 200\n  0 200\n  0 0\n", "unclear_cut 23\nunclear_cut 31\nnote 31\nrefused=2 "},
    {"PlaneThatFacesTheEnd", kI, "1000", "E1\n  0 100 0\n  0 200 0\n  0 100 50\nB1\n  50 50 18\n  50 50 18 0l 20 10 0\nS1\n  5 5 0 10r P1\n", "hole_outside 27\nhole_outside 28\nrefused=2 not_made=1 "},
    {"AskewPlane", kI, "1000", "E1\n  0 0 0\n  100 100 0\n  0 0 100\nB1\n  50 50 18\n", "hole face=sloped_bottom_flange x=50.000 y=41.924 diameter=18.000 depth=0.000 thread=none code=\"H\"\nunclear_plane 27\nnote 27\nmade=1 "},
    {"BeyondAnAskewPlane", kI, "1000", "E1\n  0 0 0\n  100 100 0\n  0 0 100\nB1\n  50 50 18\n  1420 50 18\n  5 50 18\n  500 5000 18\nI1\n  1400 10\n  1500 10\n  1500 60\n  1400 10\nI1\n  300 10\n  310 10\n  310 60\n  300 10\n",
     "hole_outside 32\nhole_outside 37\nunclear_plane 27\nhole_outside 29\nhole_outside 30\nhole_outside 28\nnote 27\nrefused=5 not_made=1 "},
    {"OpeningsInWhatANotchTakes", kZ, "1000", "AK\n  v 0 0\n  1000 0\n  1000 100\n  900 100\n  900 200\n  0 200\n  0 0\nIK\n  v 900 100\n  1000 100\n  1000 200\n  900 200\n  900 100\nBO\n  v 930 130 10 0l 40 30 0\nIK\n  h 880 150\n  980 110\n  980 190\n  880 150\n",
     "hole_outside 37\nhole_outside 31\nrefused=2 not_made=2 "},
    {"OpeningsInWhatAMitreTakes", kZ, "1000", "SC\n  1000 200 0 1 -1 0\nIK\n  v 920 10\n  980 10\n  980 15\n  920 15\n  920 10\nIK\n  v 780 10\n  980 10\n  980 15\n  780 15\n  780 10\n", "hole_outside 25\nrefused=1 not_made=2 "},
    {"OpeningsInWhatANotchAndAMitreTake", kZ, "1000", "SC\n  1000 200 0 1 -1 0\nAK\n  v 0 0\n  1000 0\n  1000 100\n  900 100\n  900 200\n  0 200\n  0 0\nIK\n  v 905 60\n  990 60\n  990 150\n  905 150\n  905 60\nIK\n  v 880 60\n  990 60\n  990 150\n  880 150\n  880 60\n", "hole_outside 33\nrefused=1 not_made=3 "},
    {"OpeningAcrossANotchOfAPlate", kPlate, "1000", "AK\n  v 0 0\n  1000 0\n  1000 200\n  600 200\n  500 80\n  400 200\n  0 200\n  0 0\nIK\n  v 400 100\n  600 100\n  600 120\n  400 120\n  400 100\nIK\n  v 400 50\n  600 50\n  600 60\n  400 60\n  400 50\n", "hole_outside 32\nrefused=1 not_made=2 "},
    {"WhatRectanglesAndMarksLose", kZ, "1000", "BO\n  v 600 100 18 5.0l 40 30 0\n  v 600 100m 18 3\n  v 600 100m 18 0l 20 0 0\n", "outline face=web cut=internal x=620.000 y=115.000 points=\"600.000,91.000 640.000,91.000 641.756,91.173 643.444,91.685 645.000,92.517 646.364,93.636 647.483,95.000 648.315,96.556 648.827,98.244 649.000,100.000 649.000,130.000 648.827,131.756 648.315,133.444 647.483,135.000 646.364,136.364 645.000,137.483 643.444,138.315 641.756,138.827 640.000,139.000 600.000,139.000 598.244,138.827 596.556,138.315 595.000,137.483 593.636,136.364 592.517,135.000 591.685,133.444 591.173,131.756 591.000,130.000 591.000,100.000 591.173,98.244 591.685,96.556 592.517,95.000 593.636,93.636 595.000,92.517 596.556,91.685 598.244,91.173\" code=\"N\"\nwarning 23\nnote 24\nnote 25\nnote 25\nnote 24\nmade=1 not_for_machine=2 "},
    {"NotchLinesWithAndWithoutArc", kZ, "1000", "AK\n  v 0 0\n  1000 0\n  1000 100\n  900 100\n  900 100w 10\n  900 200\n  0 200\n  0 0\nIK\n  v 300 50\n  400 50\n  400 92 8\n  400 100t 8\n  392 100\n  300 100\n  300 100w 0\n  300 50\n",
     "notch face=web cut=external x=950.000 y=150.000 length=100.000 width=100.000 code=\"N\"\n"
     "outline face=web cut=internal x=381.051 y=89.384 points=\"300.000,50.000 400.000,50.000 400.000,92.000 399.846,93.561 399.391,95.061 398.652,96.445 397.657,97.657 396.445,98.652 395.061,99.391 393.561,99.846 392.000,100.000 300.000,100.000\" code=\"N\"\nwarning 27\nmade=2 noted=1 "},
    {"NotchLinesBesideOtherArcs", kZ, "1000", "AK\n  v 0 0\n  1000 0\n  1000 100\n  910 100 -10\n  900 110\n  900 100w 10\n  900 100t 20\n  900 100w 10\n  900 200\n  0 200\n  0 0\n", "outline face=web cut=external x=919.520 y=119.520 points=\"900.000,110.000 900.192,108.049 900.761,106.173 901.685,104.444 902.929,102.929 904.444,101.685 906.173,100.761 908.049,100.192 910.000,100.000 1000.000,100.000 1000.000,200.000 900.000,200.000\" code=\"N\"\nwarning 29\nwarning 30\nmade=1 noted=2 "},
    {"NotchLineFarFromItsArc", kZ, "1000", "AK\n  v 0 0\n  1000 0\n  1000 100\n  910 100 -10\n  700 100w 10\n  900 110\n  900 200\n  0 200\n  0 0\n", "outline face=web cut=external x=919.520 y=119.520 points=\"900.000,110.000 900.192,108.049 900.761,106.173 901.685,104.444 902.929,102.929 904.444,101.685 906.173,100.761 908.049,100.192 910.000,100.000 1000.000,100.000 1000.000,200.000 900.000,200.000\" code=\"N\"\nwarning 27\nmade=1 noted=1 "},
    {"WallsThatAMitreOfTheFlangesTakes", kBox, "1000", "SC\n  1000 0 65 1 0 -1\nBO\n  v 990 100 18\n  h 950 100 18\n  h 920 100 18\n", "hole_outside 26\nrefused=1 not_made=3 "},
    {"WebThatAMitreOfTheFlangesTakes", kI, "1000", "SC\n  1000 0 65 1 0 -1\nBO\n  v 985 100 18\n  v 960 100 18\n", "hole_outside 25\nrefused=1 not_made=2 "},
    {"SlopeBeyondAMitre", kI, "1000", "SC\n  1000 0 0 1 1 0\nE1\n  0 200 0\n  100 200 0\n  0 100 65\nB1\n  950 20 18\n  810 20 18\nI1\n  950 10\n  960 10\n  960 20\n  950 10\n", "hole_outside 32\nhole_outside 29\nrefused=2 not_made=2 "},
    {"NarrowSidesThatASkewEndOrAMitreTakes", kPlate, "1000", "AK\n  v 0 0\n  1000 0\n  880 200\n  0 200\n  0 0\nSC\n  0 0 0 -1 0.5 0\nBO\n  o 950 1 1\n  u 950 1 1\n  o 850 1 1\n  o 80 1 1\n  u 80 1 1\n", "hole_outside 34\nhole_outside 31\nuncovered_hole 33\nuncovered_hole 35\nuncovered_hole 32\nrefused=5 not_made=2 "},
    {"BeyondASlopeWithinTheMember", kI, "1000", "E1\n  0 0 0\n  100 0 0\n  0 70 70\nB1\n  500 150 18\n  500 50 18\nI1\n  500 230\n  520 230\n  520 250\n  500 230\n", "hole_outside 30\nhole_outside 27\nrefused=2 not_made=1 "},
    {"ThreadAndSinkWithoutDiameter", kZ, "1000", "BO\n  v 600 100g 0\n  v 700 100s 0\n", "note 23\nnote 24\nnote 23\nnot_for_machine=2 "},
    {"BevelsOfTwoOutlines", kZ, "1000", "AK\n  v 0 0 0 45\n  1000 0 0 45\n  1000 200\n  0 200\n  0 0\nAK\n  h 0 0\n  1000 0 0 45\n  1000 200\n  0 200\n  0 0\n", "note 23\nnote 30\nmade=2 "},
    {"BlocksWithoutLines", kZ, "1000", "AK\nBO\nIK\nSI\nSC\nPU\nKO\nE1\n  0 2.5 0\n  100 2.5 0\n  0 62.5 80\nB1\nEN\n", "note 22\nnote 23\nnote 24\nnote 25\nnote 26\nnote 27\nnote 28\nnote 33\nnoted=8 "},
    {"SawCutsWithoutAngleOrNormal", kZ, "1000", "AK\n  v 0 0\n  1000 0\n  1000 200\n  0 200\n  0 0\nSC\n  1000 200 0 1 0 0\n  1000 200 0 0 0 0\n", "note 29\nwarning 30\nmade=1 noted=2 "},
    {"RoundTubeCutBothWays", kTube, "1000", "SC\n  858.579 100 100 1 1 1\n", "mitre end=end face=web angle=45.000\nmitre end=end face=flange angle=45.000\nmade=1 "},
    {"SinkOfAThread", kZ, "1000", "BO\n  v 500 100g 10\n  v 500 100s 26 6.5 0 0 90\n", "lone_countersink 24\nuncovered_hole 23\nrefused=2 "},
    {"TextsWithoutCharacters", kZ, "1000", "SI\n  v 100 100 0 10\n  v 100 100 0 10r \n", "warning 23\nwarning 24\nnoted=2 "},
    {"MarksOfAMemberThatIsNotMade", kZ, "1000", "BO\n  v 500 250 18\nSI\n  v 50 100 0 10r P1\n", "hole_outside 23\nwarning 23\nrefused=1 not_made=1 "},
    {"MarksOutside", kZ, "1000", "KO\n  v 100 50\n  5000 50\nSI\n  v 50 300 0 10r P1\nBO\n  v 900 -50m 0 0\n", "warning 23\nwarning 26\nwarning 28\nnote 23\nnot_for_machine=3 "},
    {"PlateSmallerThanItsHeader", kPlate, "1000", "AK\n  v 0 0\n  998 0\n  998 200\n  0 200\n  0 0\n", "warning 23\nmade=1 "},
    {"ThreadOfARectangle", kZ, "1000", "BO\n  v 500 100g 0 0l 40 30 0\n", "notch face=web cut=internal x=520.000 y=115.000 length=40.000 width=30.000 code=\"N\"\nwarning 23\nmade=1 "},
    {"WithinAnOpening", kZ, "1000", "IK\n  v 400 20\n  700 20\n  700 180\n  400 180\n  400 20\nBO\n  v 550 100 10\n  v 500 60 10 0l 30 0 0\n  v 400 50 10\n  v 600 50 0 0l 20 20 0\n  v 690 100 10 0l 30 0 0\n", "hole_outside 32\nhole_outside 30\nhole_outside 29\nrefused=3 not_made=3 "},
    {"OpeningInALargerOneOfTheSameMiddle", kZ, "1000", "IK\n  v 480 90\n  520 90\n  520 110\n  480 110\n  480 90\nIK\n  v 400 50\n  600 50\n  600 150\n  400 150\n  400 50\n", "hole_outside 23\nrefused=1 not_made=1 "},
    {"SawCutSlantedBothWaysInTheMiddle", kZ, "1000", "SC\n  500 100 50 1 0.1 0.1\n", "unclear_cut 23\nrefused=1 "},
    {"MarkBesideTheEdgeOfAPlate", kPlate, "1000", "KO\n  o 500 50\n", "warning 23\nnote 23\nnot_for_machine=1 "},
    {"WhatTheOtherSideOfAWallLoses", kI, "1000", "AK\n  v 0 0\n  1000 0\n  1000 200\n  0 200\n  0 0\nAK\n  h 0 0\n  900 0\n  900 100\n  1000 100\n  1000 200\n  0 200\n  0 0\nBO\n  v 950 50 10\n  v 850 50 10\n  v 500 100 10\n  v 950 50 0 0l 20 20 0\nIK\n  h 400 50\n  600 50\n  600 150\n  400 150\n  400 50\n", "hole_outside 40\nhole_outside 39\nhole_outside 37\nnote 29\nrefused=3 not_made=4 "},
    {"WhatTheOtherSideOfALegLoses", "L65\n  L", "1000", "AK\n  u 0 0\n  900 0\n  900 30\n  1000 30\n  1000 65\n  0 65\n  0 0\nBO\n  o 950 15 10\n  o 850 15 10\n", "hole_outside 31\nrefused=1 not_made=2 "},
    {"WallsOfABox", kBox, "1000", "AK\n  u 0 0\n  900 0\n  900 30\n  1000 30\n  1000 65\n  0 65\n  0 0\nBO\n  o 950 15 10\n", "hole face=top_flange x=950.000 y=15.000 diameter=10.000 depth=0.000 thread=none code=\"H\"\nnotch face=bottom_flange cut=external x=950.000 y=15.000 length=100.000 width=30.000 code=\"N\"\nmade=2 "},
    {"HolesOfTheOtherSideOfAWall", kI, "1000", "BO\n  v 500 100 20\n  h 500 100 10\n  h 600 100 18\n  v 600 100 18\n  v 700 100 18\n  h 700 100 20 3\n  v 250 50 20 0l 100 0 0\n  h 300 50 10\n  v 850 100 13\n  h 850 100 13\n  h 850 100s 26 6.5 0 0 90\n",
     "slot face=web x=300.000 y=50.000 width=20.000 length=120.000 angle=0.000 depth=0.000 code=\"L\"\nhole face=web x=500.000 y=100.000 diameter=20.000 depth=0.000 thread=none code=\"H\"\nhole face=web x=700.000 y=100.000 diameter=18.000 depth=0.000 thread=none code=\"H\"\nhole face=web x=850.000 y=100.000 diameter=13.000 depth=0.000 thread=none code=\"H\"\nhole face=web_back x=600.000 y=100.000 diameter=18.000 depth=0.000 thread=none code=\"H\"\nhole face=web_back x=700.000 y=100.000 diameter=20.000 depth=3.000 thread=none code=\"H\"\ncountersunk face=web_back x=850.000 y=100.000 diameter=13.000 depth=0.000 sink_diameter=26.000 sink_depth=6.500 sink_angle=90.000 code=\"K\"\nduplicate_hole 26\nhole_inside_slot 30\nduplicate_hole 24\naside 26 for 25\naside 30 for 29\naside 24 for 23\nmade=8 set_aside=3 "},
    {"HolesOfTwoWalls", kBox, "1000", "BO\n  v 500 100 18\n  h 500 100 18\n", "hole face=web x=500.000 y=100.000 diameter=18.000 depth=0.000 thread=none code=\"H\"\nhole face=web_back x=500.000 y=100.000 diameter=18.000 depth=0.000 thread=none code=\"H\"\nmade=2 "},
    {"LargerOnesOfTheSameMiddle", kZ, "1000", "BO\n  v 500 100 20\n  v 500 100 10\n  v 800 100 18\n  v 790 100 18 0l 20 0 90\n  v 290 100 10 0l 20 0 0\n  v 200 100 10 0l 200 0 0\n", "slot face=web x=300.000 y=100.000 width=10.000 length=210.000 angle=0.000 depth=0.000 code=\"L\"\nhole face=web x=500.000 y=100.000 diameter=20.000 depth=0.000 thread=none code=\"H\"\nslot face=web x=790.000 y=110.000 width=18.000 length=38.000 angle=90.000 depth=0.000 code=\"L\"\nduplicate_hole 24\nhole_inside_slot 27\nduplicate_hole 25\naside 24 for 23\naside 27 for 28\naside 25 for 26\nmade=3 set_aside=3 "},
    {"OpeningsAcrossEachOther", kZ, "1000", "IK\n  v 480 50\n  520 50\n  520 150\n  480 150\n  480 50\nIK\n  v 400 90\n  600 90\n  600 110\n  400 110\n  400 90\n", "notch face=web cut=internal x=500.000 y=100.000 length=40.000 width=100.000 code=\"N\"\nnotch face=web cut=internal x=500.000 y=100.000 length=200.000 width=20.000 code=\"N\"\nmade=2 "},
    {"ThroughABlindHole", kZ, "1000", "BO\n  v 500 100 20 3\n  v 500 100 10\n  v 600 100 20\n  v 600 100 10 3\n  v 700 100 10 3\n  v 700 100 10\n", "hole face=web x=500.000 y=100.000 diameter=10.000 depth=0.000 thread=none code=\"H\"\nhole face=web x=500.000 y=100.000 diameter=20.000 depth=3.000 thread=none code=\"H\"\nhole face=web x=600.000 y=100.000 diameter=20.000 depth=0.000 thread=none code=\"H\"\nhole face=web x=700.000 y=100.000 diameter=10.000 depth=0.000 thread=none code=\"H\"\nduplicate_hole 26\nduplicate_hole 27\naside 26 for 25\naside 27 for 28\nmade=4 set_aside=2 "},
    {"ThreadOfAHole", kZ, "1000", "BO\n  v 500 100g 10\n  v 500 100 10\n  v 600 100g 10\n  v 600 100 20\n", "duplicate_hole 24\nuncovered_hole 23\nuncovered_hole 25\naside 24 for 23\nrefused=2 not_made=2 "},
    {"OpeningInACircle", kZ, "1000", "IK\n  v 510 100 10\n  490 100 10\n  510 100 0\nIK\n  v 498 98\n  502 98\n  502 102\n  498 98\n", "hole_outside 27\nnote 23\nrefused=1 not_made=1 "},
    {"OpeningsThatTakeAPlateApart", kPlate, "1000", "IK\n  v 400 0\n  500 0\n  500 200\n  400 200\n  400 0\nIK\n  v 0 80\n  300 80\n  300 120\n  0 120\n  0 80\n", "unclear_cut 23\nrefused=1 not_made=1 "},
    {"PlaneBesideTheMember", kI, "1000", "E1\n  0 0 5000\n  100 0 5000\n  0 100 5000\nB1\n  100 100 18\n", "hole face=web x=100.000 y=100.000 diameter=18.000 depth=0.000 thread=none code=\"H\"\nwarning 22\nmade=1 "},
    {"UnknownBlock", kZ, "1000", "IN\n  A : B\nBR\n  what\n", "note 22\nwarning 24\nnoted=2 "},
};
// clang-format on

class Accounts : public ::testing::TestWithParam<Case> {};

/// The job prints no finding of members.
std::string SilentJob() {
    std::string reports;
    for (const job::FindingType& type : job::kFindingTypes)
        reports += (reports.empty() ? "" : ", ") + std::string(type.name) + " = \"off\"";
    return std::string(kJob) + "report = { " + reports + " }\n";
}

TEST_P(Accounts, AddUp) {
    const Case& c = GetParam();
    const std::map<std::string, std::string> files = {
        {"1", nc::Header("P1", c.profile, c.length) + c.blocks + "EN\n"}
    };
    const Ran ran(files);
    EXPECT_EQ(Show(ran), c.shown) << ran.document.dump(1);

    // What is refused or set aside is told where nothing is printed, too.
    const Ran silent(files, SilentJob());
    std::set<long> told;
    for (const Json& note : silent.document["notes"])
        told.insert(note["line"].get<long>());
    const Json& input = silent.document["input"];
    EXPECT_EQ(silent.document["notes"].size(),
              input["notes"].get<std::size_t>() + input["warnings"].get<std::size_t>());
    for (const Json& feature : silent.document["members"][0]["features"]) {
        const std::string account = feature.value("account", "");  // parts of others have none
        if (account == "refused" || account == "set_aside") {
            EXPECT_TRUE(told.contains(feature["line"].get<long>())) << feature;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Ledger, Accounts, ::testing::ValuesIn(kCases), [](const auto& row) {
    return std::string(row.param.name);
});

std::string With(std::string text, const std::string& from, const std::string& to) {
    return text.replace(text.find(from), from.size(), to);
}

/// A tube of diameter 200, unrolled, that ends in one period of a wave.
std::string TubeWithWave(double height) {
    std::string text = "AK\n  v 0 0\n";
    constexpr int kSteps = 24;
    for (int i = 0; i <= kSteps; ++i) {
        const double t = 2.0 * std::numbers::pi * i / kSteps;
        const double x = 1000.0 - height * (0.5 - 0.5 * std::cos(t));
        text += ZetString::format(L"  %.2f %.2f\n", x, 100.0 * t).toUtf8();
    }
    return text + "  0 628.32\n  0 0\n";
}

// At 45 degrees the wave is as high as the tube is thick.
TEST(Ledger, MitresThatARoundTubeHasAlready) {
    const auto shown = [](double height, const char* cut = "1000 200 0 1 -1 0") {
        return Show(Ran({
            {"1",
             nc::Header("P1", kTube, "1000") + "SC\n  " + cut + "\n" + TubeWithWave(height) +
                 "EN\n"}
        }));
    };
    EXPECT_EQ(shown(200.0, "1000 200 0 1 0 1").find("mitre"), std::string::npos);
    EXPECT_EQ(shown(282.843, "858.579 100 100 1 1 1").find("mitre"), std::string::npos);
    EXPECT_NE(shown(200.0, "858.579 100 100 1 1 1").find("mitre"), std::string::npos);
    EXPECT_EQ(shown(200.0).find("mitre"), std::string::npos);
    EXPECT_NE(shown(200.0).find("note 23\nmade=1 noted=1 "), std::string::npos) << shown(200.0);
    for (const double height : {0.0, 100.0, 198.0})
        EXPECT_NE(shown(height).find("mitre end=end"), std::string::npos) << height;
}

// What the library does not know: plates that are no rectangles, the ends of round sections.
TEST(Ledger, DistancesOfBothEndsOfASlot) {
    const Ran ran(
        {
            {"1",
             nc::Header("P1", kPlate, "1000") + "BO\n  v 500 160 18 0l 20 0 90\n  v 500 100 18\n"             },
            {"2",
             nc::Header("P2", kTube,  "1000") +
                 "BO\n  v 934 239 18 0l 40 0 0\n  v 26 239 18 0l 40 0 0\n"}
    },
        With(kJob, "check_distances = false", "edge_distance = 25.0"));
    std::string told;
    for (const Json& member : ran.document["members"])
        for (const Json& finding : member["findings"])
            told += finding["line"].dump() + ": " + finding["text"].get<std::string>() + "\n";
    EXPECT_EQ(told,
              "23: Distance (20.0) from the edge of the plate is less than 25.0\n"
              "24: End distance (26.0) is less than 27.0\n"
              "23: End distance (26.0) is less than 27.0\n");
}

// Whatever the job says of it: without pieces or length nothing of the member is in the machine
// file.
TEST(Ledger, QuantityOfNothing) {
    const std::string holes = "BO\n  v 500 100 18\n";
    const std::map<std::string, std::string> shown = {
        {With(nc::Header("P1",      kZ, "1000"),      "\n  12\n", "\n  0\n") + holes,
         "quantity 7\nnot_made=1 "},
        {nc::Header("P1", kZ,   "0") + holes,
         "quantity 10\nwarning 10\nwarning 23\nnote 23\nnot_made=1 "        },
    };
    for (const char* report : {"warning", "off", "non_standard"})
        for (const auto& [part, expected] : shown) {
            const Ran ran({std::pair("1", part)},
                          std::string(kJob) + "report = { quantity = \"" + report + "\" }\n");
            EXPECT_EQ(Show(ran), expected);
            EXPECT_EQ(ran.exitCode, 0);
            EXPECT_TRUE(ran.document["members"][0]["operations"].empty());
        }
}

// The flange is 65 wide over all in the file, and 40 of that stand beyond the web.
TEST(Ledger, FlangeFromItsZeroLine) {
    const Ran ran(
        {
            {"1",
             nc::Header("P1", kZ, "1000") +
                 "BO\n  u 500 20 18\n  u 600 -20 18\n  u 700 -20 18 0l 30 0 0\n  u 800 50 18\n"}
    },
        std::string(kJob) + "bottom_flange = { zero = 40.0, reversed = true }\n");
    EXPECT_EQ(
        Show(ran),
        "hole_outside 24\nhole_outside 25\nhole_outside 26\nwarning 24\nwarning 25\nrefused=3 "
        "not_made=1 ");
    // The section of the type is wider than the header says.
    const Ran wide(
        {
            {"1", nc::Header("P1", kZ, "1000") + "BO\n  o 500 100 18\n  o 600 120 18\n"}
    },
        std::string(kJob) +
            "top_flange = { zero = 50.0 }\nheight = { source = \"attributes\" }\nattributes = { height "
            "= 200.0, top_flange = 65.0, bottom_flange = 65.0, thickness = 2.0 }\n");
    EXPECT_EQ(Show(wide), "hole_outside 24\nwarning 23\nwarning 24\nrefused=1 not_made=1 ");
    // The flange stands from 40 to 65.
    const auto besides = [](const char* blocks) {
        return Show(Ran(
            {
                {"1", nc::Header("P1", kZ, "1000") + blocks}
        },
            std::string(kJob) + "marks = true\ntop_flange = { zero = 40.0 }\n"));
    };
    EXPECT_EQ(besides("IK\n  o 500 10\n  520 10\n  520 30\n  500 10\n"),
              "hole_outside 23\nrefused=1 ");
    EXPECT_EQ(besides("AK\n  o 0 40\n  1000 40\n  1000 65\n  0 65\n  0 40\n"), "made=1 ");
    EXPECT_EQ(besides("AK\n  o 0 0\n  900 0\n  900 30\n  1000 30\n  1000 65\n  0 65\n  0 0\n"),
              "unclear_cut 23\nrefused=1 ");
    EXPECT_EQ(
        besides("KO\n  o 100 30\n"),
        "mark face=top_flange kind=punch x=100.000 y=-10.000 angle=0.000 height=0.000 points=\"100.000,-10.000\" text=\"\"\nnote 23\nmade=1 ");
}

TEST(Ledger, MarksFromAReversedZeroLine) {
    const Ran ran(
        {
            {"1", nc::Header("P1", kZ, "1000") + "KO\n  u 500 10\nSI\n  u 600 20 30 10r P1\n"}
    },
        std::string(kJob) + "marks = true\nbottom_flange = { zero = 40.0, reversed = true }\n");
    EXPECT_EQ(Show(ran),
              "mark face=bottom_flange kind=punch x=500.000 y=30.000 angle=0.000 height=0.000 "
              "points=\"500.000,30.000\" text=\"\"\n"
              "mark face=bottom_flange kind=text x=600.000 y=20.000 angle=-30.000 height=10.000 "
              "points=\"\" text=\"P1\"\nmade=2 ");
}

TEST(Ledger, WhatIsRefusedWithoutALineIsNoted) {
    for (const char* report : {"off", "non_standard_silent"}) {
        const Ran ran(
            {
                {"1", nc::Header("P1", kZ, "1000") + "BO\n  v 500 100 99\n  v 600 100 13\n"}
        },
            std::string(kJob) + "report = { uncovered_hole = \"" + report + "\" }\n");
        EXPECT_EQ(Show(ran),
                  "hole face=web x=600.000 y=100.000 diameter=13.000 depth=0.000 thread=none "
                  "code=\"H\"\nuncovered_hole 23\nnote 23\nmade=1 refused=1 ");
        EXPECT_EQ(ran.exitCode, 0);
        EXPECT_EQ(ran.document["members"][0]["nonStandard"], report != std::string("off"));
    }
    const Ran ran(
        {
            {"1", nc::Header("P1", kZ, "1000") + "BO\n  v 600 100 13\n  v 600 100 13\n"}
    },
        std::string(kJob) + "report = { duplicate_hole = \"off\" }\n");
    EXPECT_EQ(Show(ran),
              "hole face=web x=600.000 y=100.000 diameter=13.000 depth=0.000 thread=none "
              "code=\"H\"\nduplicate_hole 23\naside 23 for 24\nnote 23\nmade=1 set_aside=1 ");
}

TEST(Ledger, MarksAndTextsAsRecords) {
    const Ran ran(
        {
            {"1",
             nc::Header("P1", kZ, "1000") +
                 "PU\n  o 100 50\n  200 60\nSI\n  v 50 100 30 10r P \"1\"\n"
                 "E1\n  100 2.5 0\n  200 2.5 0\n  100 62.5 80\nP1\n  20 30\n"}
    },
        std::string(kJob) + "marks = true\n");
    EXPECT_EQ(Show(ran),
              "mark face=top_flange kind=powder x=100.000 y=50.000 angle=0.000 height=0.000 "
              "points=\"100.000,50.000 200.000,60.000\" text=\"\"\n"
              "mark face=web kind=text x=50.000 y=100.000 angle=30.000 height=10.000 points=\"\" "
              "text=\"P \\\"1\\\"\"\n"
              "mark face=sloped_bottom_flange kind=powder x=120.000 y=51.250 angle=0.000 "
              "height=0.000 points=\"120.000,51.250\" text=\"\"\nmade=3 ");
}

// An NC file has them as they were read.
TEST(Ledger, MarksAndTextsInAnNcFile) {
    const Ran ran(
        {
            {"1", nc::Header("P1", kZ, "1000") + "KO\n  v 100 50\nSI\n  v 50 100 0 10r P1\n"}
    },
        With(kJob, "id = \"all\"\n", "id = \"all\"\nfiles = [\"n\"]\n") +
            "[[file]]\nid = \"n\"\nformat = \"dstv\"\n");
    EXPECT_EQ(Show(ran), "made=2 ");
}

// A mark that nothing holds is a record all the same, and told.
TEST(Ledger, MarksInWhatIsTakenAway) {
    const Ran ran(
        {
            {"1",
             nc::Header("P1", kZ, "1000") +
                 "AK\n  v 0 0\n  900 0\n  900 200\n  0 200\n  0 0\n"
                 "IK\n  v 400 50\n  500 50\n  500 150\n  400 150\n  400 50\n"
                 "SC\n  0 200 0 -1 -1 0\n"
                 "KO\n  v 950 100\nKO\n  h 880 100\n  920 100\nKO\n  v 900 100\n"
                 "SI\n  v 450 100 0 10r P1\n  v 380 100 0 10r P1\nBO\n  v 50 20m\n"
                 "E1\n  100 2.5 0\n  200 2.5 0\n  100 62.5 80\nP1\n  2000 30\n"
                 "E2\n  0 0 0\n  100 0 0\n  0 100 0\nP2\n  3000 30\n"
                 "IK\n  v 710 100 10\n  690 100 10\n  710 100 0\nKO\n  v 700 100\n"}
    },
        std::string(kJob) + "marks = true\n");
    std::string told;
    for (const Json& note : ran.document["notes"])
        told += note["line"].dump() + " ";
    EXPECT_EQ(told, "61 47 37 59 65 44 39 53 ");
    EXPECT_EQ(ran.document["members"][0]["accounts"]["made"], 13);
}

TEST(Ledger, RefusesFilesWithWarnings) {
    const Ran ran(
        {
            {"1", nc::Header("P1", kZ, "1000") + "IN\nBR\n"}
    },
        std::string(kJob) + "[nc]\nwarnings = \"refuse\"\n");
    EXPECT_EQ(ran.exitCode, 2);
    EXPECT_EQ(ran.document["faults"][0]["line"], 23);
    const std::string fault = ran.document["faults"][0]["message"];
    EXPECT_NE(fault.find("the job refuses files with warnings ([nc] warnings)"), std::string::npos)
        << fault;
}

/// What would be a fault of the program: holes of lines 23 and 24, and what was claimed.
TEST(Ledger, TellsWhatDoesNotAddUp) {
    using plugin::Account;
    const std::vector<dstv::NcEntry> entries = {
        {L"hole", 23, false},
        {L"hole", 24, false}
    };
    const auto lostWith = [&](void (*claim)(plugin::Ledger&)) {
        plugin::Ledger ledger({
            {plugin::FeatureKind::kHole, 23, 1},
            {plugin::FeatureKind::kHole, 24, 1}
        });
        ledger.Claim(23, Account::kMade);
        claim(ledger);
        std::string lines;
        const auto accounts = camjob::SettleAccounts(entries, ledger, false);
        if (accounts.lists != nullptr)
            for (const camjob::LostFeature& lost : accounts.lists->lost)
                lines += std::to_string(lost.line) + " ";
        return lines;
    };
    EXPECT_EQ(lostWith([](plugin::Ledger& ledger) { ledger.Claim(24, Account::kRefused); }), "");
    EXPECT_EQ(lostWith([](plugin::Ledger& ledger) { ledger.ClaimSetAside(24, 23); }), "");
    EXPECT_EQ(lostWith([](plugin::Ledger&) {}), "24 ");
    EXPECT_EQ(lostWith([](plugin::Ledger& ledger) { ledger.ClaimSetAside(24, 25); }), "24 ");
    EXPECT_EQ(lostWith([](plugin::Ledger& ledger) {
                  ledger.Claim(24, Account::kMade);
                  ledger.Claim(25, Account::kMade);
              }),
              "25 ");
    camjob::RunReport report;
    report.status = camjob::RunStatus::kFault;
    EXPECT_EQ(report.GetExitCode(), 4);
}

}  // namespace
