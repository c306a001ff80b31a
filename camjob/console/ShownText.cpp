#include "camjob/console/ShownText.h"

#include "camjob/console/ReportText.h"
#include "camjob/console/TextWrap.h"

namespace camjob {

void WriteText(OutputStream& stream, const ZetString& text) {
    const ZetString fitted = Fitted(PrintableText(text), stream.GetTerminal().width);
    stream.Write(Coloured(fitted.toUtf8()));
}

void WriteLine(OutputStream& stream, const ZetString& text, Tone tone) {
    WriteText(stream, Toned(OneLine(text), tone, stream.GetTerminal().hasColour) + L"\n");
}

}  // namespace camjob
