#pragma once

#include "host/recording/Hdf5.h"

#include <functional>

namespace ko {

/// Opens a recording's file, also one that is being written. Fails with an `InputError`.
Hdf5File openedToRead(const std::string& file);

// Failures of the others are `LibraryFailure`s.

/// Returns an attribute of an object.
std::string textOf(hid_t object, const char* name);
std::int64_t wholeOf(hid_t object, const char* name);
double numberOf(hid_t object, const char* name);

/// Calls `visit` with the name of each member of a group.
void forEachName(hid_t group, const std::function<void(const std::string& name)>& visit);

/// The number of elements of a list.
std::int64_t sizeOf(const Hdf5Dataset& list);

/// Reads `count` elements of a list from number `first` on.
void readPart(const Hdf5Dataset& list, hid_t type, std::int64_t first, std::int64_t count, void* elements);

} // namespace ko
