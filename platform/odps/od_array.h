// The platform's array type.

#ifndef ODPS_OD_ARRAY_H
#define ODPS_OD_ARRAY_H

#include <vector>

/// A growing array with value semantics, as the platform passes them around.
template <class T>
using OdArray = std::vector<T>;

#endif
