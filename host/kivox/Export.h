#pragma once

// Visibility of the host libraries' own interface. The host is built with hidden visibility like the
// library that links against it, so everything a client may call is marked here.
#define KIVOX_EXPORT __attribute__((visibility("default")))
