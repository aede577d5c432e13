// Writing a whole file.

#ifndef PSL_REPLACE_FILE_H
#define PSL_REPLACE_FILE_H

#include "psl_api.h"

#include <wx/string.h>

/// Writes a file in one step: it holds its old bytes or the new ones at any time, and keeps its
/// permissions. A file that does not exist is created.
/// @param path  the full path; not of a symbolic link, which would be replaced itself
/// @return false when the bytes cannot be written; the file is then as it was
PSL_API bool replaceFile(const wxString& path, const void* data, size_t size);

#endif
