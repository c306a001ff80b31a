#include "camjob/formats/FormatsCommand.h"

#include "camjob/console/ExitCode.h"
#include "camjob/console/ShownText.h"
#include "camjob/console/TextTable.h"
#include "job/FormatFile.h"
#include "job/MessageTexts.h"

#include <vector>

namespace camjob {

namespace {

int List(OutputStream& out) {
    TextTable table({
        {L"format",         TextTable::Align::kLeft},
        {L"what it writes", TextTable::Align::kLeft}
    });
    for (const job::BuiltInFormat& format : job::GetBuiltInFormats())
        table.AddRow({ZetString::fromUtf8(format.name), ZetString::fromUtf8(format.meaning)});
    WriteText(out, L"Formats of [[file]] in a job:\n\n" + table.Format(out.GetTerminal()));
    return kExitDone;
}

int Refuse(const std::string& text, OutputStream& err) {
    WriteLine(err, ZetString::fromUtf8("camjob: " + text));
    return kExitBadInput;
}

}  // namespace

int RunFormats(const FormatsOptions& options, OutputStream& out, OutputStream& err) {
    if (options.name.empty())
        return List(out);
    const job::BuiltInFormat* format = job::FindBuiltInFormat(options.name);
    if (format != nullptr && format->text.empty())
        return Refuse("the format \"" + options.name +
                          "\" has no format file: it writes an NC file for each member",
                      err);
    if (format != nullptr) {
        out.Write(format->text);
        return kExitDone;
    }
    std::vector<std::string> names;
    for (const job::BuiltInFormat& row : job::GetBuiltInFormats())
        names.emplace_back(row.name);
    return Refuse(
        "there is no format " + job::Quoted(options.name) + job::Suggest(options.name, names), err);
}

}  // namespace camjob
