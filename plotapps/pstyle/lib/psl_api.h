// Marks what the library exports. All else is hidden in it.

#ifndef PSL_API_H
#define PSL_API_H

#define PSL_API __attribute__((visibility("default")))

#endif
