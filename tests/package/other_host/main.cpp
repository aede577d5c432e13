#include "other_host.h"

wxIMPLEMENT_APP(OtherHost);
