// The platform's handle of a database object.

#ifndef ODPS_OD_DB_OBJECT_ID_H
#define ODPS_OD_DB_OBJECT_ID_H

#include <cstdint>

/// Names an object of a drawing database; a default-constructed one names none. The editor works
/// on files, without a drawing, and passes the null id on to the host's controls.
class OdDbObjectId
{
public:
    bool isNull() const noexcept { return m_handle == 0; }

private:
    std::uint64_t m_handle = 0;
};

#endif
