#include <camdata/camdata.h>
#include <cstdio>

namespace {

// A plug-in's own record, derived from one of the library.
class MarkedHole : public CHoleAddlInfo {
  public:
    ZetString m_mark = L"A1";
};

bool Check(bool holds, const char* what) {
    if (!holds)
        std::fprintf(stderr, "failed: %s\n", what);
    return holds;
}

bool VersionIsThePackages() {
    return CMxUtil::GetDllVersion(OwnModule()).toUtf8() == PACKAGE_VERSION;
}

bool RecordsCanBeDerivedAndCopied() {
    ZetNCHoleData data;
    data.size = 18.0;
    MarkedHole hole;
    hole.SetHoleData(data);
    const MarkedHole copy = hole;
    return copy.GetSize() == 18.0 && copy.m_mark == L"A1";
}

// The tolerance belongs to the library: what the program sets there, the library reads.
bool StaticDataIsShared() {
    CMxGeom::SetEPS(2.0);
    CMxGeom::SetTol(eTolEPS);
    return CMxGeom::IsEqual_Mx(10.0, 11.5);
}

bool ErrorsCrossTheBorder() {
    try {
        SetZetAssertHandler(nullptr);
        camdata::detail::FailAssertion("text", "file", 1);
    } catch (const ZetAssertError& error) {
        return error.GetText() == "text";
    }
}

}  // namespace

int main() {
    const bool passed =
        Check(VersionIsThePackages(), "the library's version is the package's") &&
        Check(RecordsCanBeDerivedAndCopied(), "records can be derived and copied") &&
        Check(StaticDataIsShared(), "static data is shared") &&
        Check(ErrorsCrossTheBorder(), "errors cross the library's border");
    return passed ? 0 : 1;
}
