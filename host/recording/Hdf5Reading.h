#pragma once

#include "host/recording/Hdf5.h"

#include <vector>

namespace ko {

/// Opens a recording's file, also one that is being written. Fails with an `InputError`.
Hdf5File openedToRead(const std::string& file);

// Failures of the others are `LibraryFailure`s.

/// Returns an attribute of an object.
std::string textOf(hid_t object, const char* name);
std::int64_t wholeOf(hid_t object, const char* name);
double numberOf(hid_t object, const char* name);

/// The names of the members of a group, in no order.
std::vector<std::string> namesIn(hid_t group);

/// Opens a group or a list with its present contents, also if this program has the same file open already.
Hdf5Group groupIn(hid_t place, const std::string& name);
Hdf5Dataset listIn(hid_t place, const std::string& name);

/// The number of elements of a list.
std::int64_t sizeOf(const Hdf5Dataset& list);

/// Reads `count` elements of a list from number `first` on.
void readPart(const Hdf5Dataset& list, hid_t type, std::int64_t first, std::int64_t count, void* elements);

} // namespace ko
