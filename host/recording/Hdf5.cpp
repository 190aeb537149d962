#include "host/recording/Hdf5.h"

#include <mutex>

#ifdef KO_ADDRESS_SANITIZER
// The library forgets a few bytes when one of its calls fails.
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:libhdf5";
}
#endif

namespace ko {

namespace {

/// Keeps the description of the innermost error.
herr_t takeFirst(unsigned number, const H5E_error2_t* error, void* kept)
{
    if (number == 0 && error->desc)
        *static_cast<std::string*>(kept) = error->desc;
    return 0;
}

void setAttribute(hid_t object, const char* name, hid_t type, const void* value)
{
    const Hdf5Space scalar(made(H5Screate(H5S_SCALAR)));
    const Hdf5Attribute attribute(made(H5Acreate2(object, name, type, scalar.id(), H5P_DEFAULT, H5P_DEFAULT)));
    made(H5Awrite(attribute.id(), type, value));
}

} // namespace

void beginHdf5()
{
    static std::once_flag once;
    // A file that cannot be written any more would otherwise be written again at the program's end.
    std::call_once(once, [] { H5dont_atexit(); });
    H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr);
}

std::string hdf5Reason()
{
    std::string reason;
    H5Ewalk2(H5E_DEFAULT, H5E_WALK_UPWARD, takeFirst, &reason);
    // The system's own words are in the middle of a longer text.
    const std::string begin = "error message = '";
    if (const auto at = reason.find(begin); at != std::string::npos) {
        reason.erase(0, at + begin.size());
        reason.erase(reason.find('\''));
    }
    return reason.empty() ? "unknown error" : reason;
}

Hdf5Type textType()
{
    return textType(H5T_VARIABLE);
}

Hdf5Type textType(std::size_t bytes)
{
    Hdf5Type type(H5Tcopy(H5T_C_S1));
    H5Tset_size(type.id(), bytes);
    H5Tset_cset(type.id(), H5T_CSET_UTF8);
    H5Tset_strpad(type.id(), bytes == H5T_VARIABLE ? H5T_STR_NULLTERM : H5T_STR_NULLPAD);
    return type;
}

void setText(hid_t object, const char* name, const std::string& text)
{
    const char* const value = text.c_str();
    setAttribute(object, name, textType().id(), &value);
}

void setFixedText(hid_t object, const char* name, const std::string& text, std::size_t bytes)
{
    setAttribute(object, name, textType(bytes).id(), padded(text, bytes).data());
}

void setNumber(hid_t object, const char* name, double number)
{
    setAttribute(object, name, H5T_NATIVE_DOUBLE, &number);
}

void setNumber(hid_t object, const char* name, std::int64_t number)
{
    setAttribute(object, name, H5T_NATIVE_INT64, &number);
}

Hdf5Dataset makeList(hid_t group, const std::string& name, hid_t type, hsize_t chunk, const void* fill)
{
    const hsize_t empty = 0;
    const hsize_t unlimited = H5S_UNLIMITED;
    const Hdf5Space space(made(H5Screate_simple(1, &empty, &unlimited)));
    const Hdf5Properties creation(made(H5Pcreate(H5P_DATASET_CREATE)));
    made(H5Pset_chunk(creation.id(), 1, &chunk));
    if (fill)
        made(H5Pset_fill_value(creation.id(), type, fill));
    // Every sample is written, so that a new chunk need not be filled.
    made(H5Pset_fill_time(creation.id(), H5D_FILL_TIME_NEVER));
    return Hdf5Dataset(
        made(H5Dcreate2(group, name.c_str(), type, space.id(), H5P_DEFAULT, creation.id(), H5P_DEFAULT)));
}

Hdf5Dataset openedList(hid_t group, const std::string& name)
{
    const Hdf5Properties access(made(H5Pcreate(H5P_DATASET_ACCESS)));
    made(H5Pset_chunk_cache(access.id(), 0, 0, H5D_CHUNK_CACHE_W0_DEFAULT));
    return Hdf5Dataset(made(H5Dopen2(group, name.c_str(), access.id())));
}

// Without a cache elements are written before the size that shows them to readers.
GrowingList::GrowingList(hid_t group, const std::string& name, Hdf5Type type)
    : data_(openedList(group, name)), type_(std::move(type))
{
}

void GrowingList::write(hsize_t first, hsize_t count, const void* elements)
{
    const hsize_t end = first + count;
    made(H5Dset_extent(data_.id(), &end));
    const Hdf5Space place(made(H5Dget_space(data_.id())));
    made(H5Sselect_hyperslab(place.id(), H5S_SELECT_SET, &first, nullptr, &count, nullptr));
    const Hdf5Space memory(made(H5Screate_simple(1, &count, nullptr)));
    made(H5Dwrite(data_.id(), type_.id(), memory.id(), place.id(), H5P_DEFAULT, elements));
}

void overwrite(hid_t object, const char* name, const void* value)
{
    const Hdf5Attribute attribute(made(H5Aopen(object, name, H5P_DEFAULT)));
    const Hdf5Type type(made(H5Aget_type(attribute.id())));
    made(H5Awrite(attribute.id(), type.id(), value));
}

std::string padded(const std::string& text, std::size_t size)
{
    std::string result = text;
    result.resize(size);
    return result;
}

} // namespace ko
