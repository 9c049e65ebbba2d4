// The PDF library and what it needs in turn are loaded when there are pages to print: they would take a quarter of
// the other commands' start.
#include <dlfcn.h>

#include <utility>

#include "host/errors.h"
#include "host/files.h"
#include "host/print_pages.h"

namespace host {

namespace {

template <class Function>
Function* Maker(const char* name)
{
    static void* const library = [] {
        const std::string path = BesideProgram("libqd480pages.so");
        void* loaded = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (!loaded) throw Failure("cannot load the PDF library: " + std::string(dlerror()));
        return loaded;
    }();
    void* const maker = dlsym(library, name);
    if (!maker) throw Failure("the PDF library does not fit: " + std::string(dlerror()));
    return reinterpret_cast<Function*>(maker);
}

}  // namespace

std::unique_ptr<PrintedPages> PrintedPages::Of(const std::string& path, const std::string& name, std::string bytes)
{
    std::unique_ptr<PrintedPages> pages;
    Maker<void(std::unique_ptr<PrintedPages>&, const std::string&, const std::string&, std::string&&)>("QdReadPages")(
        pages, path, name, std::move(bytes));
    return pages;
}

std::unique_ptr<PrintedPages> PrintedPages::Empty(int count)
{
    std::unique_ptr<PrintedPages> pages;
    Maker<void(std::unique_ptr<PrintedPages>&, int)>("QdMakePages")(pages, count);
    return pages;
}

}  // namespace host
