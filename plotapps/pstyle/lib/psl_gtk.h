// Calls of the desktop's own toolkit, where wxWidgets has none.

#ifndef PSL_GTK_H
#define PSL_GTK_H

#include <dlfcn.h>

/// A function of GTK or its libraries, which wxWidgets has loaded and which need not be there to
/// compile. @return null where there is none of that name
template <class Function>
Function* gtkFunction(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

#endif
