// Key paths: a root key's long or short name, then the names of the keys down to the one that is meant, with
// a backslash between them. One in front of the root's name is skipped.
#pragma once

#include "platform/registry_api.h"
#include "registry/registry_error.h"
#include "text/text.h"

namespace pointalk {

// The number of the path's root key, whose name may be in any case; 0 and kInvalidRoot for an unknown name.
RegistryKey RootKeyFromPath(TextView path, RegistryError& error);

// What comes after the root's name; empty for the root itself. The view lies within the path.
TextView SubKeyFromPath(TextView path);

Text EnsureTrailingBackslash(TextView path);  // Kept: nothing reads it.

}  // namespace pointalk
