#include "platform/kernel/modules.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "platform/kernel/code_pages.h"
#include "platform/kernel/handles.h"
#include "platform/kernel/last_error.h"
#include "platform/kernel/paths.h"
#include "platform/kernel/resources.h"
#include "platform/kernel/system.h"
#include "platform/kernel/system_libraries.h"
#include "platform/kernel/unicode.h"

namespace platform::modules {

namespace {

using InitializeEntry = BOOL (*)(HINSTANCE module, DWORD reason, void* reserved);

struct Module {
    std::u16string path;                      // by which it was loaded, absolute
    std::string realPath;                     // what tells one module from another; empty for system libraries
    const SystemLibrary* library = nullptr;   // one of the layer's own
    void* code = nullptr;                     // of dlopen
    std::vector<std::uint8_t> resourceBytes;  // what the index refers into
    ResourceIndex resources;
    std::size_t loads = 1;
};

HandleTable<Module>& Modules()
{
    static auto* modules = new HandleTable<Module>(FirstModuleHandle, 0x10000);
    return *modules;
}

HMODULE ToModule(std::uintptr_t handle) { return reinterpret_cast<HMODULE>(handle); }

HMODULE Fail(DWORD code, std::string* why, std::string text)
{
    if (why != nullptr) *why = std::move(text);
    SetError(code);
    return nullptr;
}

// Counts one more load of a module that is loaded; null if none fits.
template <class Fits>
HMODULE LoadedAlready(Fits fits)
{
    HMODULE found = nullptr;
    Modules().ForEach([&](std::uintptr_t handle, Module& module) {
        if (found != nullptr || !fits(module)) return;
        ++module.loads;
        found = ToModule(handle);
    });
    return found;
}

HMODULE LoadSystemLibrary(const SystemLibrary& library, std::string* why)
{
    if (!IsLoadable(library))
        return Fail(ERROR_MOD_NOT_FOUND, why, ToUtf8(library.fileName) + " cannot be loaded on this system");
    if (HMODULE loaded = LoadedAlready([&](const Module& module) { return module.library == &library; })) return loaded;
    auto module = std::make_shared<Module>();
    module->path = SystemDirectory().append(u"\\").append(library.fileName);
    module->library = &library;
    return ToModule(Modules().Add(std::move(module)));
}

std::string RealPath(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
    return real == nullptr ? std::string() : std::string(real.get());
}

// A file as bytes, for as long as this lives.
class MappedFile {
  public:
    explicit MappedFile(const std::string& path)
    {
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (file < 0) return;
        struct stat status {};
        if (fstat(file, &status) == 0 && status.st_size > 0) {
            size_ = static_cast<std::size_t>(status.st_size);
            mapped_ = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, file, 0);
        }
        close(file);
    }
    ~MappedFile()
    {
        if (mapped_ != MAP_FAILED) munmap(mapped_, size_);
    }
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    // Empty when the file cannot be read.
    std::span<const std::uint8_t> Bytes() const
    {
        if (mapped_ == MAP_FAILED) return {};
        return {static_cast<const std::uint8_t*>(mapped_), size_};
    }

  private:
    void* mapped_ = MAP_FAILED;
    std::size_t size_ = 0;
};

// The file's resource section, and an index into it. False, with *why, when the file is damaged.
bool ReadResources(Module& module, std::string* why)
{
    const MappedFile file(module.realPath);
    if (file.Bytes().empty()) {
        *why = "it is empty or cannot be read";
        return false;
    }
    const auto section = FindResourceSection(file.Bytes(), why);
    if (!section) return false;
    module.resourceBytes.assign(section->begin(), section->end());
    if (module.resourceBytes.empty()) return true;
    auto index = ParseCompiledResources(module.resourceBytes, why);
    if (!index) return false;
    module.resources = std::move(*index);
    return true;
}

void* LibraryBase(const void* address)
{
    Dl_info info{};
    return dladdr(address, &info) != 0 ? info.dli_fbase : nullptr;
}

// A symbol that this very module defines; the loader's look-up also reaches the libraries that it links.
void* OwnSymbol(const Module& module, const char* name)
{
    link_map* map = nullptr;
    if (dlinfo(module.code, RTLD_DI_LINKMAP, &map) != 0 || map == nullptr) return nullptr;
    void* symbol = dlsym(module.code, name);
    return symbol != nullptr && LibraryBase(symbol) == LibraryBase(map->l_ld) ? symbol : nullptr;
}

BOOL CallInitialize(const Module& module, HMODULE handle, DWORD reason)
{
    void* symbol = OwnSymbol(module, "DllInitialize");
    return symbol == nullptr ? TRUE : reinterpret_cast<InitializeEntry>(symbol)(handle, reason, nullptr);
}

HMODULE LoadFile(const std::u16string& path, std::string* why)
{
    auto module = std::make_shared<Module>();
    module->path = FullPath(path);
    module->realPath = RealPath(ToUtf8(module->path));
    if (module->realPath.empty()) return Fail(ERROR_MOD_NOT_FOUND, why, ToUtf8(path) + ": " + std::strerror(errno));
    if (HMODULE loaded = LoadedAlready([&](const Module& other) { return other.realPath == module->realPath; }))
        return loaded;

    std::string damage;
    if (!ReadResources(*module, &damage)) return Fail(ERROR_BAD_EXE_FORMAT, why, ToUtf8(path) + ": " + damage);
    module->code = dlopen(module->realPath.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module->code == nullptr) {
        const char* reason = dlerror();
        return Fail(ERROR_BAD_EXE_FORMAT, why, reason != nullptr ? reason : ToUtf8(path) + ": cannot be loaded");
    }
    // It is known before its entry runs: the entry asks for its path and loads it once more.
    const HMODULE handle = ToModule(Modules().Add(module));
    if (CallInitialize(*module, handle, DLL_PROCESS_ATTACH)) return handle;
    Modules().Take(handle);
    dlclose(module->code);
    return Fail(ERROR_DLL_INIT_FAILED, why, ToUtf8(path) + ": its DllInitialize refused to start");
}

}  // namespace

HMODULE Load(const std::u16string& path, std::string* why)
{
    if (path.empty()) return Fail(ERROR_MOD_NOT_FOUND, why, "no file name is given");
    const SystemLibrary* library = FindSystemLibrary(path);
    return library != nullptr ? LoadSystemLibrary(*library, why) : LoadFile(path, why);
}

bool Unload(HMODULE handle)
{
    const auto module = Modules().Find(handle);
    // One that is just being unloaded has no loads left to take back.
    if (module == nullptr || module->loads == 0) {
        SetError(ERROR_INVALID_HANDLE);
        return false;
    }
    if (--module->loads != 0) return true;
    if (module->code != nullptr) CallInitialize(*module, handle, DLL_PROCESS_DETACH);
    Modules().Take(handle);
    if (module->code != nullptr) dlclose(module->code);
    return true;
}

FARPROC Entry(HMODULE handle, const char* name)
{
    const auto module = Modules().Find(handle);
    if (module == nullptr) {
        SetError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    void* symbol = nullptr;
    // A small number in place of a name is an ordinal; nothing here is exported by ordinal.
    if (reinterpret_cast<std::uintptr_t>(name) > 0xFFFF)
        symbol = module->library != nullptr ? LibraryFunction(*module->library, name) : OwnSymbol(*module, name);
    if (symbol == nullptr) SetError(ERROR_PROC_NOT_FOUND);
    return reinterpret_cast<FARPROC>(symbol);
}

std::span<const std::uint8_t> Resource(HMODULE handle, int type, int number)
{
    const auto module = Modules().Find(handle);
    if (module == nullptr) return {};
    return module->resources.Find(type, number);
}

std::u16string String(HMODULE handle, unsigned number)
{
    const auto block = Resource(handle, StringResource, static_cast<int>(number / 16 + 1));
    return StringOfBlock(block, number).value_or(std::u16string());
}

std::size_t LoadCount(HMODULE handle)
{
    const auto module = Modules().Find(handle);
    return module == nullptr ? 0 : module->loads;
}

std::u16string FileName(HMODULE handle)
{
    const auto module = Modules().Find(handle);
    return module == nullptr ? std::u16string() : module->path;
}

}  // namespace platform::modules

using namespace platform;

extern "C" {

HMODULE LoadLibraryW(const WCHAR* path)
{
    if (Fault("LoadLibraryW", ERROR_MOD_NOT_FOUND)) return nullptr;
    return modules::Load(path == nullptr ? std::u16string() : path, nullptr);
}

HMODULE LoadLibraryA(const CHAR* path)
{
    if (Fault("LoadLibraryA", ERROR_MOD_NOT_FOUND)) return nullptr;
    return modules::Load(path == nullptr ? std::u16string() : FromNarrow(path), nullptr);
}

BOOL FreeLibrary(HMODULE module)
{
    if (Fault("FreeLibrary", ERROR_INVALID_HANDLE)) return FALSE;
    return modules::Unload(module);
}

FARPROC GetProcAddress(HMODULE module, const CHAR* name)
{
    if (Fault("GetProcAddress", ERROR_PROC_NOT_FOUND)) return nullptr;
    return modules::Entry(module, name);
}

DWORD GetModuleFileNameW(HMODULE module, WCHAR* path, DWORD chars)
{
    if (Fault("GetModuleFileNameW", ERROR_INVALID_HANDLE)) return 0;
    const std::u16string name = modules::FileName(module);
    if (name.empty() || path == nullptr || chars == 0) {
        SetError(name.empty() ? ERROR_INVALID_HANDLE : ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    // A path that does not fit is cut, and terminated all the same.
    const std::size_t length = std::min<std::size_t>(name.size(), chars - 1);
    std::copy_n(name.begin(), length, path);
    path[length] = u'\0';
    if (length == name.size()) return static_cast<DWORD>(length);
    SetError(ERROR_INSUFFICIENT_BUFFER);
    return chars;
}

}  // extern "C"
