#include "fuzz/Law.h"
#include "fuzz/ScratchFolder.h"

#include "camdata/project/CProjectInformation.h"

// Any bytes are settings or none; what was written from them reads back as the same.

namespace {

class Settings : public CProjectInformation {
  public:
    explicit Settings(const ScratchFolder& folder) {
        m_expectedEntryCount = 8;
        SetLocation(ZetString::fromUtf8(folder.NameOf("")));
        SetSettingFileName(L"settings.txt");
        SetProjFileName(ZetString::fromUtf8(folder.NameOf("settings.txt")));
        ZetArray<ZetString> prefixes;
        for (int i = 0; i < m_expectedEntryCount; ++i)
            prefixes.append(L"+");
        SetProjInfoArrInFile(prefixes);
    }

    bool IsLike(const Settings& other) const {
        return GetFileName() == other.GetFileName() && GetRevision() == other.GetRevision() &&
               GetDeliveryDate() == other.GetDeliveryDate() &&
               GetComments() == other.GetComments() &&
               GetDeliveryAddress() == other.GetDeliveryAddress();
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ScratchFolder folder;
    folder.Write("settings.txt", TextOf(data, size));
    Settings first(folder);
    if (!first.GetDetailFromFile() || first.WriteSettings().has_value())
        return 0;
    Settings second(folder);
    if (second.GetDetailFromFile() && !second.WriteSettings().has_value()) {
        Settings third(folder);
        Check(third.GetDetailFromFile() && third.IsLike(second),
              "settings that were read and written read back as the same");
    }
    return 0;
}
