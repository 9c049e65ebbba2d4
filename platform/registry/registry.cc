// Registry keys over the RegistryStore. A key is a path and the right that it was opened with; values go
// straight to the store.
#include <algorithm>
#include <cstring>
#include <string>

#include "platform/kernel/handles.h"
#include "platform/registry.h"
#include "platform/registry/keys.h"
#include "platform/seams/environment.h"
#include "platform/seams/stores.h"

namespace platform::registry {

namespace {

constexpr REGSAM RightToSet = 0x0002;

struct Key {
    std::u16string path;
    bool maySet;
};

HandleTable<Key>& Keys()
{
    static auto* keys = new HandleTable<Key>(FirstKeyHandle, 4);
    return *keys;
}

std::shared_ptr<RegistryStore> Store() { return CurrentEnvironment().registry; }

bool FaultPlanned(const char* function) { return CurrentEnvironment().faults.Fails(function); }

// What a store cannot do is the platform's general failure.
template <class Work>
LONG Guarded(Work work)
{
    try {
        return static_cast<LONG>(work());
    } catch (const StoreError&) {
        return static_cast<LONG>(ERROR_GEN_FAILURE);
    }
}

DWORD Open(HKEY parent, std::u16string_view path, REGSAM access, HKEY* key)
{
    std::u16string whole;
    if (parent != HKEY_LOCAL_MACHINE) {
        const auto above = Keys().Find(parent);
        if (above == nullptr) return ERROR_INVALID_HANDLE;
        whole = above->path;
        if (!path.empty()) whole.append(u"\\");
    }
    whole.append(path);
    const auto store = Store();
    const auto right = store == nullptr ? RegistryStore::Access::None : store->KeyAccess(whole);
    if (right == RegistryStore::Access::None) return ERROR_FILE_NOT_FOUND;
    const bool readOnly = (access & ~KEY_READ) == 0;
    if (!readOnly && right != RegistryStore::Access::Full) return ERROR_ACCESS_DENIED;
    const bool maySet = (access & RightToSet) != 0;
    *key = reinterpret_cast<HKEY>(Keys().Add(std::make_shared<Key>(Key{std::move(whole), maySet})));
    return ERROR_SUCCESS;
}

DWORD Query(HKEY key, std::u16string_view name, DWORD* type, BYTE* data, DWORD* bytes)
{
    const auto opened = Keys().Find(key);
    const auto store = Store();
    if (opened == nullptr || store == nullptr) return ERROR_INVALID_HANDLE;
    if (data != nullptr && bytes == nullptr) return ERROR_INVALID_PARAMETER;
    const auto value = store->KeyValue(opened->path, name);
    if (!value) return ERROR_FILE_NOT_FOUND;
    const DWORD room = bytes == nullptr ? 0 : *bytes;
    if (type != nullptr) *type = value->type;
    if (bytes != nullptr) *bytes = static_cast<DWORD>(value->bytes.size());
    if (data == nullptr) return ERROR_SUCCESS;
    if (room < value->bytes.size()) return ERROR_MORE_DATA;
    std::ranges::copy(value->bytes, data);
    return ERROR_SUCCESS;
}

DWORD Set(HKEY key, std::u16string_view name, DWORD type, const BYTE* data, DWORD bytes)
{
    const auto opened = Keys().Find(key);
    const auto store = Store();
    if (opened == nullptr || store == nullptr) return ERROR_INVALID_HANDLE;
    if (data == nullptr && bytes != 0) return ERROR_INVALID_PARAMETER;
    if (!opened->maySet) return ERROR_ACCESS_DENIED;
    StoredValue value{type, {}};
    if (bytes != 0) value.bytes.assign(data, data + bytes);
    return store->SetKeyValue(opened->path, name, value) ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
}

std::u16string_view View(const WCHAR* text) { return text == nullptr ? std::u16string_view() : text; }

}  // namespace

std::size_t OpenCount() { return Keys().Count(); }

}  // namespace platform::registry

using namespace platform::registry;

extern "C" {

LONG RegOpenKeyExW(HKEY parent, const WCHAR* path, DWORD, REGSAM access, HKEY* key)
{
    if (FaultPlanned("RegOpenKeyExW")) return static_cast<LONG>(ERROR_ACCESS_DENIED);
    if (key == nullptr) return static_cast<LONG>(ERROR_INVALID_PARAMETER);
    return Guarded([&] { return Open(parent, View(path), access, key); });
}

LONG RegQueryValueExW(HKEY key, const WCHAR* name, DWORD*, DWORD* type, BYTE* data, DWORD* bytes)
{
    if (FaultPlanned("RegQueryValueExW")) return static_cast<LONG>(ERROR_GEN_FAILURE);
    return Guarded([&] { return Query(key, View(name), type, data, bytes); });
}

LONG RegSetValueExW(HKEY key, const WCHAR* name, DWORD, DWORD type, const BYTE* data, DWORD bytes)
{
    if (FaultPlanned("RegSetValueExW")) return static_cast<LONG>(ERROR_GEN_FAILURE);
    return Guarded([&] { return Set(key, View(name), type, data, bytes); });
}

LONG RegCloseKey(HKEY key)
{
    if (FaultPlanned("RegCloseKey")) return static_cast<LONG>(ERROR_INVALID_HANDLE);
    if (key == HKEY_LOCAL_MACHINE || Keys().Take(key) != nullptr) return static_cast<LONG>(ERROR_SUCCESS);
    return static_cast<LONG>(ERROR_INVALID_HANDLE);
}

}  // extern "C"
