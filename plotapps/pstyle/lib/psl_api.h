// Marks what the library exports.

#ifndef PSL_API_H
#define PSL_API_H

#ifdef PSL_BUILDING
#define PSL_API __attribute__((visibility("default")))
#else
#define PSL_API
#endif

#endif
