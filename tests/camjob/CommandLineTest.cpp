#include "camjob/CamjobRun.h"
#include "camjob/NcFiles.h"

#include <algorithm>

namespace {

struct Case {
    const char* name;
    std::vector<std::string> arguments;  ///< {} stands for the folder of the test
    int exitCode;
    const char* out;  ///< part of it; "" for none
    const char* err;
};

std::vector<std::string> InFolder(std::vector<std::string> arguments, const TempFolder& folder) {
    for (std::string& argument : arguments)
        if (argument.starts_with("{}"))
            argument = ArgumentFor(folder, argument.substr(2));
    return arguments;
}

void ExpectPart(const std::string& text, const std::string& part) {
    if (part.empty())
        EXPECT_EQ(text, "");
    else
        EXPECT_NE(text.find(part), std::string::npos) << text;
}

class CommandLine : public ::testing::TestWithParam<Case> {};

TEST_P(CommandLine, EndsWithItsCode) {
    const TempFolder folder;
    folder.Write("good.nc1", nc::Plain());
    folder.Write("bad.nc1", nc::BadLength());
    folder.Write("-x.nc1", nc::Plain());
    std::filesystem::create_directory(folder.PathOf("empty"));
    const CamjobRun run = RunTool(InFolder(GetParam().arguments, folder));
    EXPECT_EQ(run.exitCode, GetParam().exitCode);
    ExpectPart(run.out, GetParam().out);
    ExpectPart(run.err, GetParam().err);
}

const Case kCases[] = {
    {"Nothing",              {},                                    2, "",                                "Usage: camjob"                      },
    {"UnknownOption",        {"--frob"},                            2, "",                                "--frob"                             },
    {"UnknownCommand",       {"frob", "a.nc1"},                     2, "",                                "frob"                               },
    {"Help",                 {"--help"},                            0, "Usage: camjob",                   ""                                   },
    {"HelpOfCheck",          {"check", "--help"},                   0, "1 done, but a member has errors", ""                                   },
    {"Version",              {"--version"},                         0, "camjob " CAMJOB_VERSION,          ""                                   },
    {"NoFile",               {"check"},                             2, "",                                "FILE is required"                   },
    {"UnknownOptionOfCheck", {"check", "--xml", "{}good.nc1"},      2, "",                                "--xml"                              },
    {"Formats",              {"formats"},                           0, "records",                         ""                                   },
    {"FormatAsAFile",        {"formats", "csv"},                    0, "quotes = \"needed\"",             ""                                   },
    {"UnknownFormat",        {"formats", "cvs"},                    2, "",                                "did you mean \"csv\"?"              },
    {"Good",                 {"check", "{}good.nc1"},               0, "1 file read: 2 holes (2 round)",  ""                                   },
    {"GoodTwice",            {"check", "{}good.nc1", "{}good.nc1"}, 0, "files read 2\n",                  ""                                   },
    {"Bad",                  {"check", "{}bad.nc1"},                2, "1 file refused\n",                "bad.nc1:10: length \"6236:88\": exp"},
    {"BadThenGood",          {"check", "{}bad.nc1", "{}good.nc1"},  2, "  refused    1\n",                "bad"                                },
    {"Missing",              {"check", "{}gone.nc1"},               2, "1 file refused\n",                "gone.nc1: "                         },
    {"Folder",               {"check", "{}"},                       2, "  refused    1\n",                "bad.nc1:10"                         },
    {"StandardInput",        {"check", "-"},                        2, "1 file refused\n",                "-: standard input \"-\": expected"  },
    {"JsonAfterFiles",       {"check", "{}good.nc1", "--json"},     0, "\"schema\"",                      ""                                   },
    {"DashInAName",          {"check", "--", "{}-x.nc1"},           0, "1 file read",                     ""                                   },
    {"LineEndInAName",       {"check", "{}a\nb.nc1"},               2, "1 file refused\n",                "a\uFFFDb.nc1: "                     },
    {"SteeringName",
     {"check",
      "{}a\x1B\xE2\x80\xAE"
      "b.nc1"},
     2,                                                                "1 file refused\n",
     "a\\u001B\\u202Eb.nc1: "                                                                                                                  },
    {"CheckOfAnEmptyFolder",
     {"check", "{}empty"},
     2,                                                                "1 file refused\n",
     "expected files in it that end with "                                                                                                     },
    {"OutWithoutName",       {"run", "{}job.toml", "--out", ""},    2, "",                                "--out: the folder has no name"      },
    {"UnknownKind",
     {"init", "{}new", "--kind", "frame"},
     2,                                                                "",
     "--kind: expected purlins, plates, frames or mixed, found \"frame\"; did you mean \"frames\"?"                                            },
    {"KindAsNumber",         {"init", "{}new", "--kind", "2"},      2, "",                                "found \"2\""                        },
    {"NamedLikeACommand",    {"check", "check"},                    2, "1 file refused\n",                "check: "                            },
};

INSTANTIATE_TEST_SUITE_P(Cases, CommandLine, ::testing::ValuesIn(kCases), [](const auto& instance) {
    return std::string(instance.param.name);
});

/// A device without room.
class FullStream : public camjob::OutputStream {
  public:
    long attempts = 0;

  private:
    std::error_code WriteBytes(std::string_view) override {
        ++attempts;
        return std::make_error_code(std::errc::no_space_on_device);
    }
};

TEST(CommandLineOutput, FailureToWriteOutranksBadInput) {
    const TempFolder folder;
    folder.Write("good.nc1", nc::Plain());
    for (const std::vector<std::string>& arguments : {
             std::vector<std::string>{"--help"},
             { "check",          "{}good.nc1", "{}good.nc1"},
             {  "check", "--json",        "{}gone.nc1", "{}good.nc1"}
    }) {
        SCOPED_TRACE(arguments.front());
        FullStream out;
        TextStream err;
        EXPECT_EQ(camjob::RunCamjob(InFolder(arguments, folder), out, err), 3);
        EXPECT_EQ(out.attempts, 1);
        ExpectPart(err.GetText(), "camjob: the output could not be written: ");
    }
}

}  // namespace
