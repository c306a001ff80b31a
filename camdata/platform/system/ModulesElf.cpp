#include "camdata/platform/system/Modules.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <dlfcn.h>
#include <link.h>
#include <string>
#include <string_view>

namespace {

// A handle is the module's entry in the dynamic linker's list.
link_map* EntryOf(ModuleHandle module) {
    return static_cast<link_map*>(module);
}

// The module that an address lies in; null when it lies in none.
link_map* EntryOfAddress(const void* address) {
    Dl_info info;
    void* entry = nullptr;
    if (dladdr1(address, &info, &entry, RTLD_DL_LINKMAP) == 0)
        return nullptr;
    return static_cast<link_map*>(entry);
}

// A reference to a module that is loaded already, given back at the end of its life.
class LoadedLibrary {
  public:
    // Null: the main program.
    explicit LoadedLibrary(const char* file) : m_library(dlopen(file, RTLD_LAZY | RTLD_NOLOAD)) {}
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;
    ~LoadedLibrary() {
        if (m_library != nullptr)
            dlclose(m_library);
    }

    link_map* Entry() const {
        link_map* entry = nullptr;
        if (m_library != nullptr)
            dlinfo(m_library, RTLD_DI_LINKMAP, &entry);
        return entry;
    }
    void* Symbol(const char* name) const {
        return m_library == nullptr ? nullptr : dlsym(m_library, name);
    }

  private:
    void* m_library;
};

std::string_view BaseName(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return LowerAscii(x) == LowerAscii(y);
    });
}

// The value of a dynamic entry, 0 when there is none.
ElfW(Addr) DynamicValue(const link_map& entry, ElfW(Sxword) tag) {
    for (const ElfW(Dyn)* at = entry.l_ld; at->d_tag != DT_NULL; ++at)
        if (at->d_tag == tag)
            return at->d_un.d_val;
    return 0;
}

std::string_view SharedObjectName(const link_map& entry) {
    const ElfW(Addr) name = DynamicValue(entry, DT_SONAME);
    const ElfW(Addr) texts = DynamicValue(entry, DT_STRTAB);
    if (name == 0 || texts == 0)
        return {};
    // Where the dynamic section is read-only, addresses in it are still relative to the module.
    const ElfW(Addr) base = texts < entry.l_addr ? entry.l_addr : 0;
    return reinterpret_cast<const char*>(base + texts + name);
}

bool IsNamed(const link_map& entry, std::string_view name) {
    return EqualNoCase(SharedObjectName(entry), name) || EqualNoCase(BaseName(entry.l_name), name);
}

using NoteHeader = ElfW(Nhdr);

constexpr std::string_view kVersionNoteOwner("camdata", sizeof "camdata");  // with its final zero
constexpr unsigned kVersionNoteType = 1;

std::size_t PaddedToWords(std::size_t size) {
    return (size + 3) / 4 * 4;
}

// Looks for the version among the notes of one segment: each is a header, the owner's name and the
// content, the latter two padded to words.
std::optional<ModuleVersion> VersionInNotes(std::string_view notes) {
    while (notes.size() >= sizeof(NoteHeader)) {
        NoteHeader header;
        std::memcpy(&header, notes.data(), sizeof header);
        const std::size_t contentAt = sizeof header + PaddedToWords(header.n_namesz);
        const std::size_t length = contentAt + PaddedToWords(header.n_descsz);
        if (length > notes.size())
            return std::nullopt;
        ModuleVersion version;
        if (notes.substr(sizeof header, header.n_namesz) == kVersionNoteOwner &&
            header.n_type == kVersionNoteType && header.n_descsz == sizeof version) {
            std::memcpy(version.data(), notes.data() + contentAt, sizeof version);
            return version;
        }
        notes.remove_prefix(length);
    }
    return std::nullopt;
}

struct VersionSearch {
    const link_map* entry;
    std::optional<ModuleVersion> version;
};

bool IsSameModule(const dl_phdr_info& info, const link_map& entry) {
    return info.dlpi_addr == entry.l_addr && std::string_view(info.dlpi_name) == entry.l_name;
}

std::optional<ModuleVersion> VersionInModule(const dl_phdr_info& info) {
    for (std::size_t i = 0; i < info.dlpi_phnum; ++i) {
        const ElfW(Phdr)& segment = info.dlpi_phdr[i];
        // Segments of alignment 8 hold GNU properties, whose notes are padded otherwise.
        if (segment.p_type != PT_NOTE || segment.p_align > 4)
            continue;
        const auto* notes = reinterpret_cast<const char*>(info.dlpi_addr + segment.p_vaddr);
        if (const auto version = VersionInNotes({notes, segment.p_memsz}))
            return version;
    }
    return std::nullopt;
}

// Called for each loaded module; a result other than 0 ends the walk.
int ReadVersion(dl_phdr_info* info, std::size_t, void* data) {
    auto& search = *static_cast<VersionSearch*>(data);
    if (!IsSameModule(*info, *search.entry))
        return 0;
    search.version = VersionInModule(*info);
    return 1;
}

}  // namespace

ModuleHandle FindLoadedModule(const ZetString& name) {
    if (name.isEmpty())
        return nullptr;
    const std::string wanted = name.toUtf8();
    link_map* entry = LoadedLibrary(nullptr).Entry();
    while (entry != nullptr && !IsNamed(*entry, wanted))
        entry = entry->l_next;
    return entry;
}

ModuleFunction FindFunction(ModuleHandle module, const char* name) {
    const LoadedLibrary library(module == nullptr ? nullptr : EntryOf(module)->l_name);
    void* symbol = library.Symbol(name);
    // The dynamic linker also looks through the libraries that the module is linked with.
    if (symbol == nullptr || EntryOfAddress(symbol) != library.Entry())
        return nullptr;
    return reinterpret_cast<ModuleFunction>(symbol);
}

ModuleHandle OwnModule() {
    // Something that no program can take a copy of, as it may of exported data.
    static const char inside = 0;
    return EntryOfAddress(&inside);
}

std::optional<ModuleVersion> ModuleFileVersion(ModuleHandle module) {
    if (module == nullptr)
        return std::nullopt;
    VersionSearch search{EntryOf(module), std::nullopt};
    dl_iterate_phdr(ReadVersion, &search);
    return search.version;
}
