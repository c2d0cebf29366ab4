// The host's version, kept from the start to the end.
#include "frame/services/host_version.h"

WideText HostVersionText;
