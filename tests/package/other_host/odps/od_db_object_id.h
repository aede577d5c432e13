// What identifies an object of a drawing: nothing, since this host has no drawings.

#ifndef OTHER_HOST_OD_DB_OBJECT_ID_H
#define OTHER_HOST_OD_DB_OBJECT_ID_H

class OdDbObjectId
{
};

#endif
