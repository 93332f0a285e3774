#include "uPango.h"

#include <dlfcn.h>

#include <stdexcept>
#include <string>

namespace murala
{

namespace
{

constexpr char Library[] = "libpangocairo-1.0.so.0";

[[noreturn]] void Fail()
{
    const char* reason = dlerror();
    throw std::runtime_error("Cannot draw text: " + std::string(reason ? reason : Library));
}

// The library's own libraries are searched as well.
template<class TFunction>
void Find(void* library, const char* name, TFunction& function)
{
    function = reinterpret_cast<TFunction>(dlsym(library, name));
    if (!function)
        Fail();
}

TPango Load()
{
    // Never closed: GLib cannot be unloaded.
    void* library = dlopen(Library, RTLD_LAZY | RTLD_LOCAL);
    if (!library)
        Fail();
    TPango pango;
#define MURALA_FIND(name) Find(library, #name, pango.name);
    MURALA_PANGO_FUNCTIONS(MURALA_FIND)
#undef MURALA_FIND
    return pango;
}

} // namespace

const TPango& TPango::Get()
{
    static const TPango pango = Load();
    return pango;
}

} // namespace murala
