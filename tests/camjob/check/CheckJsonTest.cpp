#include "camjob/CamjobRun.h"
#include "camjob/NcFiles.h"

#include <iterator>
#include <nlohmann/json.hpp>
#include <vector>

namespace {

using Json = nlohmann::json;

struct JsonRun {
    int exitCode;
    Json document;
};

/// Fails the test when the output is not one valid document.
JsonRun RunJson(const TempFolder& folder, const std::vector<std::string>& files) {
    std::vector<std::string> arguments{"check", "--json"};
    for (const std::string& file : files)
        arguments.push_back(ArgumentFor(folder, file));
    const CamjobRun run = RunTool(arguments);
    EXPECT_EQ(run.err, "");
    Json document = Json::parse(run.out, nullptr, false);
    EXPECT_FALSE(document.is_discarded()) << run.out;
    return {run.exitCode, document};
}

const Json& HoleOfLine(const Json& file, long line) {
    static const Json kNone;
    for (const Json& hole : file["holes"])
        if (hole["line"] == line)
            return hole;
    ADD_FAILURE() << "no hole of line " << line;
    return kNone;
}

TEST(CheckJson, TellsTheHeader) {
    const TempFolder folder;
    folder.Write("z.nc1", nc::AllHoles());
    const JsonRun run = RunJson(folder, {"z.nc1"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.document["schema"], "camjob-check/1");
    const Json& file = run.document["files"][0];
    EXPECT_EQ(file["file"], ArgumentFor(folder, "z.nc1"));
    EXPECT_EQ(file["status"], "read");
    EXPECT_EQ(file["header"],
              Json::parse(R"({"mark": "Z-101", "drawing": "D-4711", "profileName": "Z200x2.0",
                              "profileCode": "SO", "quantity": 12, "length": 6000.0,
                              "sawLength": 5990.5, "height": 200.0, "width": 65.0,
                              "thickness": 2.0})"));
}

/// Each holds the members that differ from those of a plain through hole on the web.
constexpr const char* kHolesOfTheFile[] = {
    R"({"line": 23, "x": 100.0, "y": 50.0, "size": 18.0})",
    R"({"line": 24, "x": 220.0, "y": 50.0, "size": 18.0, "shape": "slot", "length": 58.0,
        "angle": 0.0, "remarks": ["angle 0.0"]})",
    R"({"line": 26, "x": 400.0, "y": 50.0, "size": 12.0, "shape": "threaded", "thread": "right",
        "remarks": ["right-hand thread"]})",
    R"({"line": 27, "x": 450.0, "y": 50.0, "size": 12.0, "shape": "threaded", "thread": "left",
        "depth": 8.5, "remarks": ["left-hand thread", "8.5 deep"]})",
    R"({"line": 28, "x": 500.0, "y": 100.0, "size": 13.0, "shape": "countersunk",
        "countersunk": true})",
    R"({"line": 29, "x": 500.0, "y": 100.0, "size": 26.0, "shape": "countersunk", "depth": 6.5,
        "sinkAngle": 90.0, "countersunk": true, "setAside": "countersink",
        "requiredToProcess": false,
        "remarks": ["set aside: countersink companion", "6.5 deep", "sink angle 90.0"]})",
    R"({"line": 30, "x": 640.0, "y": 60.0, "size": 60.0, "shape": "rectangular", "length": 100.0,
        "angle": 0.0, "rectangle": {"b": 80.0, "h": 40.0, "cornerRadius": 10.0},
        "remarks": ["b 80.0 x h 40.0", "radius 10.0", "angle 0.0"]})",
    R"({"line": 31, "x": 825.0, "y": 65.0, "size": 50.0, "shape": "square", "length": 50.0,
        "angle": 0.0, "rectangle": {"b": 50.0, "h": 50.0, "cornerRadius": 0.0},
        "remarks": ["b 50.0 x h 50.0", "sharp corners", "angle 0.0"]})",
    R"({"line": 33, "x": 1000.0, "y": 32.5, "size": 18.0, "face": "top flange",
        "viewPosition": 0})",
    R"({"line": 34, "x": 1000.0, "y": 32.55, "size": 17.95, "face": "bottom flange",
        "viewPosition": 2})",
    R"({"line": 35, "x": 1500.0, "y": -0.04, "size": 9.0, "face": "web back",
        "viewPosition": 3})",
};

TEST(CheckJson, TellsEachHoleInFull) {
    const Json plain = Json::parse(
        R"({"face": "web", "viewPosition": 1, "shape": "round", "length": null, "angle": null,
            "depth": null, "sinkAngle": null, "rectangle": null, "thread": null,
            "countersunk": false, "setAside": null, "requiredToProcess": true, "valid": true,
            "nonStandard": false, "code": null, "remarks": []})");
    const TempFolder folder;
    folder.Write("z.nc1", nc::AllHoles());
    const Json file = RunJson(folder, {"z.nc1"}).document["files"][0];
    EXPECT_EQ(file["holes"].size(), std::size(kHolesOfTheFile) + 1);  // and the slot across
    for (const char* members : kHolesOfTheFile) {
        Json expected = plain;
        expected.update(Json::parse(members));
        EXPECT_EQ(HoleOfLine(file, expected["line"]), expected);
    }
}

TEST(CheckJson, TellsNotchesAndFindings) {
    const TempFolder folder;
    folder.Write("z.nc1", nc::AllHoles());
    const Json file = RunJson(folder, {"z.nc1"}).document["files"][0];
    ASSERT_EQ(file["notches"].size(), 3u);
    EXPECT_EQ(file["notches"][1],
              Json::parse(R"({"face": "web", "internal": true, "x": 825.0, "y": 65.0,
                              "shape": "square", "length": 50.0, "width": 50.0, "turned": false,
                              "corners": 4, "status": "valid", "duplicate": false,
                              "holeLine": 31})"));
    EXPECT_EQ(file["notches"][2]["shape"], "outline");
    EXPECT_EQ(file["notches"][2]["length"], Json());
    EXPECT_EQ(file["notches"][2]["holeLine"], Json());
    EXPECT_EQ(file["findings"], Json::parse(R"({"errors": [], "warnings":
                  ["line 35: Distance (-0.0) from bottom flange is insufficient"]})"));
}

TEST(CheckJson, SlotAcrossTurnsByARightAngleAboutItsStart) {
    const TempFolder folder;
    folder.Write("z.nc1", nc::AllHoles());
    const Json file = RunJson(folder, {"z.nc1"}).document["files"][0];
    const Json& hole = HoleOfLine(file, 25);
    EXPECT_NEAR(hole["x"], 300.0, 1e-6);
    EXPECT_NEAR(hole["y"], 73.0, 1e-6);
    EXPECT_EQ(hole["angle"], 90.0);
    EXPECT_EQ(hole["length"], 40.0);
    EXPECT_EQ(hole["size"], 14.0);
}

TEST(CheckJson, RefusedFilesTellWhatWasExpected) {
    const TempFolder folder;
    folder.Write("good.nc1", nc::Plain());
    folder.Write("bad.nc1", nc::BadLength());
    const JsonRun run = RunJson(folder, {"good.nc1", "bad.nc1", "gone.nc1", "good.nc1"});
    EXPECT_EQ(run.exitCode, 2);
    const Json& files = run.document["files"];
    ASSERT_EQ(files.size(), 4u);
    EXPECT_EQ(files[0]["status"], "read");
    EXPECT_EQ(files[1]["status"], "refused");
    EXPECT_EQ(files[1]["error"]["line"], 10);
    EXPECT_EQ(files[1]["error"]["column"], 3);
    EXPECT_EQ(files[1]["error"]["what"], "length");
    EXPECT_EQ(files[1]["error"]["found"], "6236:88");
    EXPECT_EQ(files[2]["error"]["line"], 0);
    EXPECT_EQ(files[2]["error"]["file"], ArgumentFor(folder, "gone.nc1"));
    EXPECT_EQ(files[3], files[0]);
    EXPECT_EQ(run.document["summary"],
              Json::parse(R"({"filesRead": 2, "filesRefused": 2, "holes": 4,
                              "holesByShape": {"round": 4}, "holesSetAside": 0, "notches": 0,
                              "invalidMembers": 0, "notes": 0, "warnings": 0})"));
}

TEST(CheckJson, HoldsAnyText) {
    const std::string mark = "\"quoted\" \\ \x01\x1B \xE2\x80\xA8 </script> \xF0\x9F\x94\xA9";
    const TempFolder folder;
    folder.Write("z.nc1", nc::Plain(mark));
    const Json file = RunJson(folder, {"z.nc1"}).document["files"][0];
    EXPECT_EQ(file["header"]["mark"], mark);
}

TEST(CheckJson, AgreesWithTheText) {
    const TempFolder folder;
    folder.Write("z.nc1", nc::AllHoles());
    const std::string text = RunTool({"check", ArgumentFor(folder, "z.nc1")}).out;
    const Json holes = RunJson(folder, {"z.nc1"}).document["files"][0]["holes"];
    EXPECT_EQ(holes.size(), 12u);
    for (const Json& hole : holes) {
        const std::string line = "\n    " + std::to_string(hole["line"].get<long>()) + "  ";
        const std::size_t start = text.find(line);
        ASSERT_NE(start, std::string::npos) << line;
        const std::string row = text.substr(start, text.find('\n', start + 1) - start);
        for (const char* member : {"face", "shape"})
            EXPECT_NE(row.find(hole[member].get<std::string>()), std::string::npos) << row;
        for (const Json& remark : hole["remarks"])
            EXPECT_NE(row.find(remark.get<std::string>()), std::string::npos) << row;
    }
}

}  // namespace
