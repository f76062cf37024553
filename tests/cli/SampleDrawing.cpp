// The text of the sample drawing.
#include "tests/cli/SampleDrawing.h"

#include <sstream>

namespace {

std::string Header(const std::string& version) {
    return "0 SECTION\n2 HEADER\n9 $ACADVER\n1 " + version +
           "\n9 $DWGCODEPAGE\n3 ANSI_1252\n9 $HANDSEED\n5 100\n0 ENDSEC\n";
}

const char* const kTables = R"(0 SECTION
2 TABLES
0 TABLE
2 LAYER
70 3
0 LAYER
5 10
2 0
70 0
0 LAYER
5 11
2 P1
70 0
0 LAYER
5 12
2 P2
70 0
0 ENDTAB
0 TABLE
2 APPID
70 2
0 APPID
5 13
2 VRN_TQ_WIRE
70 0
0 APPID
5 14
2 VRN_TQ_ATT_VIRTUAL
70 0
0 ENDTAB
0 ENDSEC
)";

const char* const kBlocks = R"(0 SECTION
2 BLOCKS
0 BLOCK
5 1E
8 0
2 B
70 2
0 TEXT
5 20
8 0
40 2.5
1 Bomba
0 TEXT
5 21
8 0
40 2.5
1 Motor
0 ENDBLK
5 1F
8 0
0 ENDSEC
)";

const char* const kEntities = R"(0 SECTION
2 ENTITIES
0 TEXT
5 30
8 P1
40 2.50
1 Motor
0 TEXT
5 31
8 P1
40 2.5
1 Bomba
0 INSERT
5 32
8 P1
66 1
2 B
0 ATTRIB
5 33
8 P1
40 2.5
1 Motor
2 TAG
70 0
0 SEQEND
5 3A
8 P1
0 MTEXT
5 34
8 P1
40 2.5
1 Painel
0 LWPOLYLINE
5 35
8 P1
90 2
70 0
10 0.0
20 0.0
10 9.0
20 0.0
1001 VRN_TQ_WIRE
1070 1
1070 2
1000 W1^LCabo
0 LINE
5 36
8 P1
10 0.0
20 0.0
11 1.0
21 1.0
0 INSERT
5 37
8 P2
2 B
0 TEXT
5 38
8 P2
40 2.5
1 Motor
0 ENDSEC
)";

const char* const kObjects = R"(0 SECTION
2 OBJECTS
0 DICTIONARY
5 50
330 0
281 1
3 ESQ_VIRTUAL_TQ
350 51
0 DICTIONARY
5 51
330 50
281 1
3 A
350 52
0 XRECORD
5 52
330 51
280 1
1001 VRN_TQ_ATT_VIRTUAL
1000 V^LSinal^LX
0 ENDSEC
)";

}  // namespace

std::string Groups(const std::string& lines, const char* lineEnd) {
    std::string dxf;
    std::istringstream stream(lines);
    for (std::string line; std::getline(stream, line);) {
        const size_t blank = line.find(' ');
        const std::string code = line.substr(0, blank);
        const std::string value = blank == std::string::npos ? "" : line.substr(blank + 1);
        dxf += std::string(code.size() < 3 ? 3 - code.size() : 0, ' ') + code + lineEnd + value +
               lineEnd;
    }
    return dxf;
}

std::string SampleDrawing() {
    return Groups(Header("AC1015") + kTables + kBlocks + kEntities + kObjects + "0 EOF\n");
}

std::string OldDrawing() {
    return Groups(Header("AC1009") + kTables + kBlocks + kEntities + "0 EOF\n");
}

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
    const size_t at = text.find(what);
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}
