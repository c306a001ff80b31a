#include "camdata/platform/dialog/Dialog.h"
#include "camdata/platform/system/Modules.h"

#include <dlfcn.h>
#include <link.h>
#include <string>

namespace {

/// The module that draws dialogs lies beside this library.
std::string DialogModulePath() {
    const std::string own = static_cast<const link_map*>(OwnModule())->l_name;
    return own.substr(0, own.rfind('/') + 1) + "camdata_qt.so";
}

ModuleHandle EntryOf(void* library) {
    link_map* entry = nullptr;
    dlinfo(library, RTLD_DI_LINKMAP, &entry);
    return entry;
}

}  // namespace

DialogResult camdata::detail::ShowNativeDialog(const DialogTemplate& dialog, DialogEvents& events) {
    // It stays for the life of the process, as what it starts cannot be ended.
    void* library = dlopen(DialogModulePath().c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (library == nullptr)
        return NotShown(L"the module that draws it cannot be loaded: " +
                        ZetString::fromUtf8(dlerror()));
    if (ModuleFileVersion(EntryOf(library)) != ModuleFileVersion(OwnModule()))
        return NotShown(L"the module that draws it, camdata_qt.so, is of another version");
    const auto show = reinterpret_cast<DialogModuleFunction>(dlsym(library, kDialogModuleFunction));
    if (show == nullptr)
        return NotShown(L"camdata_qt.so is no module that draws dialogs");
    DialogResult result;
    show(dialog, events, result);
    return result;
}
