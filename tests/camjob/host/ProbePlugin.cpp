// A plug-in that writes what it was handed, and does what the mark of the first part says.

#include "camdata/camdata.h"

#include <stdexcept>

namespace {

ZetString TextOf(ZetNCEntity* entity) {
    ZetNCCreator creator;
    creator.setNCEntity(entity);
    creator.create();
    const auto object = HostPtr<IEqualPartObject>::adopt(GetEqualPartObj(entity));
    ZetString text = ZetString::format(L"%s %s %.1f x%d%s\n",
                                       creator.getHeader().mark,
                                       GetProfileNameFromCreator(&creator),
                                       creator.getHeader().length,
                                       creator.getHeader().quantity,
                                       object.get() == nullptr ? L" without an object" : L"");
    for (const ZetNCView& view : creator.getNCStructure().getViews())
        for (const ZetNCHoleData& hole : view.getHoles())
            text += ZetString::format(
                L"  view %d: hole %.1f %.1f %.1f\n", view.getViewPos(), hole.x, hole.y, hole.size);
    for (ZetNCEntity* attached : entity->getAttachedEntities())
        text += ZetString::format(L"  attached: %s\n", attached->getHeader(0).mark);
    return text;
}

int Write(ZetNCEntity* const* entities, long count, const char* folder) {
    ZetFileAccess file;
    file.Open(ZetString::fromUtf8(folder) + L"/parts.txt", L"w");
    for (long i = 0; i < count; ++i)
        file.Write(TextOf(entities[i]));
    CMxUtil::PrintPrompt(L"100 %% in " + ZetString::fromUtf8("gr\xC3\xBC"
                                                             "n"));
    return eNCPluginDone;
}

int Raise(const ZetString& how) {
    if (how == L"ASSERT")
        return ZetArray<int>()[0];
    if (how == L"THROW")
        throw std::runtime_error("no such machine");
    if (how == L"BREAK")
        throw 1;
    throw std::logic_error("no row");
}

struct Row {
    const wchar_t* mark;
    int result;
};
constexpr Row kResults[] = {
    {L"INVALID", eNCPluginInvalidMembers},
    {L"FAIL",    eNCPluginFailed        },
    {L"FILE",    eNCPluginFileFault     },
    {L"ODD",     17                     },
};

}  // namespace

int RunNCPlugin(ZetNCEntity* const* entities, long count, const char* folder) {
    const ZetString mark = entities[0]->getHeader(0).mark;
    for (const Row& row : kResults)
        if (mark == row.mark)
            return row.result;
    return mark.left(1) == L"!" ? Raise(mark.mid(1)) : Write(entities, count, folder);
}
