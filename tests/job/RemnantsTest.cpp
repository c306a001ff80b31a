#include "job/Remnants.h"
#include "support/TempFolder.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using job::Remnant;

std::variant<std::vector<Remnant>, std::vector<job::JobError>> Read(const std::string& bytes) {
    const TempFolder folder;
    const std::u8string file = folder.Write("job.toml", "").u8string();
    folder.Write("rest.csv", bytes);
    job::Job job;
    job.file.assign(file.begin(), file.end());
    job.cutting.remnants = "rest.csv";
    return job::ReadRemnants(job);
}

const std::string kHead = "profile,material,length,quantity,name\r\n";

TEST(Remnants, TableIsReadAsItIsMeant) {
    const std::vector<Remnant> expected = {
        {L"C100x1.5", L"S350GD, zinc", 2350.5, 3, L"Rack \"7\""},
        {L"C100x1.5", L"",             100000, 0, L""          }
    };
    for (const std::string& bytes : {
             kHead + "C100x1.5,\"S350GD, zinc\",2350.5,3,\"Rack \"\"7\"\"\"\r\n"
                     "C100x1.5,,100000,0,\r\n",
             // Other order, mark, line ends, blanks and empty lines, no end of the last line.
             std::string("\xEF\xBB\xBFname,quantity,length,profile,material\n\n"
                         " \"Rack \"\"7\"\"\" , 3 ,2350.50,C100x1.5,\"S350GD, zinc\"\n\r\n"
                         ",0,100000.,C100x1.5,"),
             job::MakeRemnantTable(expected),
         }) {
        const auto read = Read(bytes);
        ASSERT_TRUE(std::holds_alternative<std::vector<Remnant>>(read)) << bytes;
        EXPECT_EQ(std::get<std::vector<Remnant>>(read), expected) << bytes;
    }
}

/// What a spreadsheet would run, and names that NC files can have.
TEST(Remnants, NamesOfAllKindsAreReadBackAsTheyWere) {
    const std::vector<Remnant> remnants = {
        {L"-C1",     L"=S\t\u202E1", 1, 1, L"a" },
        {L"'+1",     L"-5.5",        1, 1, L"'a"},
        {L"\uFF1D1", L"+5",          1, 1, L"-" }
    };
    const std::string table = job::MakeRemnantTable(remnants);
    EXPECT_EQ(table,
              kHead +
                  "'-C1,'=S\t\xE2\x80\xAE"
                  "1,1,1,a\r\n"
                  "''+1,-5.5,1,1,'a\r\n"
                  "'\xEF\xBC\x9D"
                  "1,'+5,1,1,'-\r\n");
    const auto read = Read(table);
    ASSERT_TRUE(std::holds_alternative<std::vector<Remnant>>(read));
    EXPECT_EQ(std::get<std::vector<Remnant>>(read), remnants);
}

TEST(Remnants, EveryBadRowIsTold) {
    struct Case {
        std::string bytes;
        std::string faults;
    };
    const std::string head =
        "the first line must be profile,material,length,quantity,name, in any "
        "order: save the table with commas between its fields";
    const std::string quote =
        "a field with a quote stands in quotes, and its own quotes are written twice";
    const std::string utf8 = "this line is not UTF-8: save the file with the encoding UTF-8";
    const std::string fields =
        " instead of 5: a field with a comma stands in quotes, and a number "
        "has a decimal point";
    for (const Case& tested : std::vector<Case>{
             {"",                                                                            "0 the table is empty: its first line is profile,material,length,quantity,name;"},
             {"profile;material;length;quantity;name\n",                                     "1 " + head + ";"                                                               },
             {"profile,length,quantity,name\n",                                              "1 " + head + ";"                                                               },
             {"profile,material,length,quantity,name,name\n",                                "1 " + head + ";"                                                               },
             {"\xFF\xFEp",                                                                   "1 " + utf8 + ";"                                                               },
             {kHead + "A,S,1234,5,1,R\nA\n",
              "2 the row has 6 fields" + fields + ";3 the row has 1 field" + fields + ";"                                                                                    },
             {kHead + ",S,\"1,5\",1e3,R\n",
              "2 \"profile\" is missing: it is the profile name of the members;"
              "2 \"length\" is \"1,5\": write mm above 0, at most 100000, such as 2350.5;"
              "2 \"quantity\" is \"1e3\": write a whole number of bars from 0 to 1000000;"                                                                                   },
             {kHead + "A,S,0,-1,R\nA,S,100001,1000001,R\nA,S,1.2.3,,R\n",
              "2 \"length\" is \"0\": write mm above 0, at most 100000, such as 2350.5;"
              "2 \"quantity\" is \"-1\": write a whole number of bars from 0 to 1000000;"
              "3 \"length\" is \"100001\": write mm above 0, at most 100000, such as 2350.5;"
              "3 \"quantity\" is \"1000001\": write a whole number of bars from 0 to 1000000;"
              "4 \"length\" is \"1.2.3\": write mm above 0, at most 100000, such as 2350.5;"
              "4 \"quantity\" is missing: write a whole number of bars from 0 to 1000000;"                                                                                   },
             {kHead + "A,S,1," + std::string(400,                                            '9') + ",R\n",
              "2 \"quantity\" is \"" + std::string(400, '9') +
                  "\": write a whole number of bars from 0 to 1000000;"},
             {kHead + "A,S,1,1,a\"b\nA,S,1,1,\"a\"b\nA,S,1,1,\xE4\nA,S,1,1,a\x1B"
                      "b\n",       "2 " + quote + ";3 " + quote + ";4 " + utf8 +
                  ";5 a field cannot have line breaks or control characters;"                                                                                      },
             {kHead + "A,S,1,1,\"a\nb\"\nA,S,0,1,\nA,S,1,1,\"c\nd",
              "2 a field cannot have line breaks or control characters;"
              "4 \"length\" is \"0\": write mm above 0, at most 100000, such as 2350.5;"
              "5 the quotes that a field here begins with have no end;"},
    }) {
        const auto read = Read(tested.bytes);
        std::string faults;
        if (const auto* errors = std::get_if<std::vector<job::JobError>>(&read))
            for (const job::JobError& error : *errors) {
                EXPECT_TRUE(error.file.ends_with("rest.csv"));
                faults += std::to_string(error.line) + " " + error.text + ";";
            }
        EXPECT_EQ(faults, tested.faults) << tested.bytes;
    }
}

}  // namespace
