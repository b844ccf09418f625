#include "configuration/StringTableEntries.h"

#include <array>

namespace vantrellion {

namespace {

constexpr std::array<StringEntry, 140> kEntries{{
    // Headings of the id ranges; nothing reads them.
    {101, "FV.2001.02.29"},
    {102, "String Resources"},
    {110, "200-299 Tool Tips - Screen TimePairs"},
    {120, "300-349 Tool Tips - Screen Configuration"},
    {125, "350-399 Default Colors"},
    {130, "400-499 Not Assigned"},
    {140, "500-519 Default Base, Input, Cntl, Config"},
    {142, "520-549 Lists, Chip Type"},
    {144, "550-599 Lists, Base, Input, Cntl, Config"},
    {150, "600-699 Registry Key Values"},
    {160, "700-799 Not Assigned Yet"},
    {170, "800-899 Not Assigned Yet"},
    {180, "900-999 Not Assigned Yet"},
    {199, "-"},
    // Tool tips of the relay rows of the main screen.
    {205, "Manually turn relay ON (will not override \"STOP\")"},
    {210, "Change state of relay (ON changes to OFF)"},
    {220, "No Tool Tip"},
    {225, "User Defined Relay Name "},
    {230, "Selected Days of week: 1=Sun,2=Mon,3=Tue,4=Wed,5=Thur,6=Fri,7=Sat "},
    {235, "End Time"},
    {240, "Start Time"},
    {242,
     "HH:MM:SS or HH:MM am/pm, or SR / SS (sunrise / sunset) with an optional +H:MM or "
     "-H:MM, e.g. SS+0:30"},
    {245, "(E)ven,(O)dd,(D)ay,(H)our,(M)inute,(S)econd, TH, MH, BH, ## Cyclic Minutes"},
    {250, "Total Time ON or Method ON"},
    {255, "\"STOP\" and RESET this relay, (overrides ALL other settings)"},
    {260, "User selected icon, (32 x 32 & 16 x 16 only)"},
    {265, "Total Count, Input signal changes to ON"},
    {270, "No Tool Tip"},
    {297, "-"},
    {298, "End Main Screen Tool Tips"},
    {299, "-"},
    // Tool tips of the configuration screens. 338 and 339 frame the group colour tips, 350 and
    // 351 the status colour tips.
    {300, "Below are the settings for your Interface Board #"},
    {301, "Below are Colors for each group of relays"},
    {302, "Information Only, see Documentation"},
    {303, "Usually the same as \"Base Address\", see Documentation"},
    {304, "Input Register Address, usually (Base + 1) or ( Base + 2), see Documentation"},
    {306,
     "Address of the register used to configure the ports on your interface card - SEE CARD MANUAL "
     "(not used by all cards). Changing this will RESET Output and Input Ports"},
    {308,
     "Hex number used to configure the ports on your interface card - SEE CARD MANUAL (not used by "
     "all cards). Changing this will RESET Output and Input Ports"},
    {311, "Enter Your Default Name for this relay"},
    {312, "Enables Logging for this Board"},
    {314, "Resets This Boards Relays on Exit or New"},
    {316, "Enter Directory where you want log files created"},
    {318, "Enables warning if you enter a time that OverLaps an existing Time-Pair"},
    {328, "-"},
    {330, "Choose Backgroung Color For Group 1"},
    {331, "Choose Backgroung Color For Group 2"},
    {332, "Choose Backgroung Color For Group 3"},
    {333, "Choose Backgroung Color For Group 4"},
    {334, "Choose Backgroung Color For Group 5"},
    {335, "Choose Backgroung Color For Group 6"},
    {336, "Choose Backgroung Color For Group 7"},
    {337, "Choose Backgroung Color For Group 8"},
    {338, "330"},
    {339, "337"},
    {340, "Select Bachground Color for Relay Name"},
    {341, "Select Color to Indicate Relay is ON"},
    {342, "Select Color to Indicate Relay is OFF"},
    {343, "Select Color to Indicate Time Pair is ON"},
    {344, "Select Color to Indicate Time Pair is OFF"},
    {345, "Select Color to Indicate Manual is ON"},
    {346, "Select Color to Indicate MAanual is NOT ON"},
    {347, "Select Color to Indictae Input is ON (High)"},
    {348, "Select Color to Indicate Input is OFF (Low)"},
    {349, "Select Background Color for Total Time"},
    {350, "340"},
    {351, "349"},
    {352, "-"},
    {356, "-"},
    {357, "End Configuration Tool Tips"},
    {358, "-"},
    // Default colours: relay groups 1 to 8, then the status colours in the order of
    // cmdSetColorIndicator, then the fixed red of the stop state.
    {359, "Default Colors"},
    {360, "&HC0FFFF"},
    {361, "&H8080FF"},
    {362, "&H80C0FF"},
    {363, "&H80FFFF"},
    {364, "&HFFFF80"},
    {365, "&HFF8080"},
    {366, "&HFF80FF"},
    {367, "&HFFFFFF"},
    {368, "&HFFFF&"},
    {369, "&HFF00&"},
    {370, "&HC0C0C0&"},
    {371, "&HFF00&"},
    {372, "&HC0C0C0&"},
    {373, "&HFF00&"},
    {374, "&HC0C0C0&"},
    {375, "&HFF00&"},
    {376, "&HC0C0C0&"},
    {377, "&HC0C0C0&"},
    {378, "&HFF&"},
    {398, "End Configuration Default Colors"},
    {399, "-"},
    {400, "Unassigned"},
    {499, "Unassigned"},
    // Default board values: four items each, item n for board n + 1; addresses in hexadecimal.
    // 516 and 517 frame them.
    {500, "CBRelay16A,CBRelay16B,CBRelay16A,CBRelay16B"},
    {501, "300,302,308,30A"},
    {502, "301,303,309,30B"},
    {503, "0,0,0,0"},
    {504, "0,0,0,0"},
    {516, "500"},
    {517, "504"},
    {518, "End Default Board Configuration"},
    {519, "-"},
    // Chip types, framed by 547 and 548; 527 lies outside on purpose.
    {520, "CBRelay08"},
    {521, "CBRelay16A"},
    {522, "CBRelay16B"},
    {523, "8255PortA"},
    {524, "8255PortB"},
    {525, "PCL-725"},
    {526, "ACL-7125"},
    {527, "LAST"},
    {547, "520"},
    {548, "526"},
    {549, "End ChipType List"},
    // Address rows: base, input, control address and port configuration value in hexadecimal,
    // then a comment that nothing reads, typed as it stands. 550 is the column legend, 567 and
    // 568 lie outside the list; 597 and 598 frame it.
    {550, "Base,Input,Cntl,Config                      A B CC"},
    {551, "200,201,203,80,         index 0   H80 -O-O-OO"},
    {552, "220,221,223,81,         index 1   H81 -O-O-IO"},
    {553, "240,241,243,82,         index 2   H82 -O-I -OO"},
    {554, "260,261,263,83,         index 3   H83 -O -I -IO"},
    {555, "280,281,283,88,         index 4   H88 -O-O-OI"},
    {556, "2A0,2A1,2A3,89,        index 5   H89 -O O II "},
    {557, "2C0,2C1,2C3,8A,        index 6   H8A -O -I -OP"},
    {558, "2E0,2E1,2E3,8B,         index 7    H8B -O -I -II"},
    {559, "300,301,303,90,         index 8    H90  -I -O -OO "},
    {560, "310,311,313,91,         index 9    H91  -I -O -IO"},
    {561, "318,319,31B,92,         index 10  H92  -I  -I -OO"},
    {562, "320,321,323,93,         index 11  H93  -I  -I -IO"},
    {563, "328,329,32B,98,         index 12  H98  -I -O -OI "},
    {564, "330,331,333,99,         index 13  H99  -I -O -II"},
    {565, "338,339,33B,9A,         index 14  H9A  -I -I - IO   "},
    {566, "340,341,343,9B,         index 15  H9B   -I -I  -II"},
    {567, "Last"},
    {568, "-"},
    {597, "551"},
    {598, "566"},
    {599, "End Address List"},
    {600, "Registry Keys 600-699"},
    // Title of the main screen after a crash restart.
    {1400, "AUTOMATIC RESTART following System Crash"},
    // Headings of the per-screen ranges.
    {3000, "3000-3499 frmConfiguration"},
    {22000, "Last String Entry in Vantrellion Resource File"},
}};

constexpr bool SortedById() {
    for (size_t i = 1; i < kEntries.size(); ++i)
        if (kEntries[i - 1].Id >= kEntries[i].Id) return false;
    return true;
}
static_assert(SortedById(), "the lookup searches the entries by id");

}  // namespace

std::span<const StringEntry> StringTableEntries() {
    return kEntries;
}

}  // namespace vantrellion
