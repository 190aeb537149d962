#include "host/recording/Hdf5Reading.h"

#include "host/setup/SetupFile.h"
#include "host/support/InputError.h"

#include <algorithm>
#include <initializer_list>

namespace ko {

namespace {

/// Opens an attribute of one element of one of these classes.
Hdf5Attribute openedAttribute(hid_t object, const char* name, std::initializer_list<H5T_class_t> classes)
{
    Hdf5Attribute attribute(made(H5Aopen(object, name, H5P_DEFAULT)));
    const Hdf5Space space(made(H5Aget_space(attribute.id())));
    const Hdf5Type type(made(H5Aget_type(attribute.id())));
    if (made(H5Sget_simple_extent_npoints(space.id())) != 1 ||
        std::find(classes.begin(), classes.end(), H5Tget_class(type.id())) == classes.end())
        throw LibraryFailure{std::string("the attribute ") + name + " is of another type"};
    return attribute;
}

/// A list has one dimension.
Hdf5Space spaceOf(const Hdf5Dataset& list)
{
    Hdf5Space space(made(H5Dget_space(list.id())));
    if (H5Sget_simple_extent_ndims(space.id()) != 1)
        throw LibraryFailure{"a list is of another shape"};
    return space;
}

/// Whether the file was being written when this program opened it first; the library then still knows its contents of
/// that time.
bool mayHaveGrown(hid_t place)
{
    const Hdf5File file(made(H5Iget_file_id(place)));
    unsigned intent = 0;
    made(H5Fget_intent(file.id(), &intent));
    return (intent & H5F_ACC_SWMR_READ) != 0;
}

herr_t addName(hid_t, const char* name, const H5L_info_t*, void* names)
{
    static_cast<std::vector<std::string>*>(names)->emplace_back(name);
    return 0;
}

template <class Number> Number attributeOf(hid_t object, const char* name, hid_t type)
{
    const Hdf5Attribute attribute = openedAttribute(object, name, {H5T_INTEGER, H5T_FLOAT});
    Number number{};
    made(H5Aread(attribute.id(), type, &number));
    return number;
}

} // namespace

Hdf5File openedToRead(const std::string& file)
{
    refuseDevice(file, Pipes::Refused);
    beginHdf5();
    try {
        Hdf5File opened(H5Fopen(file.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT));
        if (opened.id() < 0)
            opened = Hdf5File(made(H5Fopen(file.c_str(), H5F_ACC_RDONLY | H5F_ACC_SWMR_READ, H5P_DEFAULT)));
        groupIn(opened.id(), "/");
        return opened;
    } catch (const LibraryFailure& failure) {
        throw InputError(file + ": is no recording: " + failure.reason);
    }
}

std::string textOf(hid_t object, const char* name)
{
    const Hdf5Attribute attribute = openedAttribute(object, name, {H5T_STRING});
    const Hdf5Type type(made(H5Aget_type(attribute.id())));
    if (made(H5Tis_variable_str(type.id())) > 0) {
        char* text = nullptr;
        made(H5Aread(attribute.id(), type.id(), &text));
        std::string result = text ? text : "";
        H5free_memory(text);
        return result;
    }
    std::string text(H5Tget_size(type.id()), '\0');
    made(H5Aread(attribute.id(), type.id(), text.data()));
    return text.substr(0, text.find('\0'));
}

std::int64_t wholeOf(hid_t object, const char* name)
{
    return attributeOf<std::int64_t>(object, name, H5T_NATIVE_INT64);
}

double numberOf(hid_t object, const char* name)
{
    return attributeOf<double>(object, name, H5T_NATIVE_DOUBLE);
}

std::vector<std::string> namesIn(hid_t group)
{
    std::vector<std::string> names;
    made(H5Literate(group, H5_INDEX_NAME, H5_ITER_NATIVE, nullptr, addName, &names));
    return names;
}

Hdf5Group groupIn(hid_t place, const std::string& name)
{
    Hdf5Group group(made(H5Gopen2(place, name.c_str(), H5P_DEFAULT)));
    if (mayHaveGrown(place))
        made(H5Grefresh(group.id()));
    return group;
}

Hdf5Dataset listIn(hid_t place, const std::string& name)
{
    Hdf5Dataset list = openedList(place, name);
    if (mayHaveGrown(place))
        made(H5Drefresh(list.id()));
    return list;
}

std::int64_t sizeOf(const Hdf5Dataset& list)
{
    const Hdf5Space space = spaceOf(list);
    return static_cast<std::int64_t>(made(H5Sget_simple_extent_npoints(space.id())));
}

void readPart(const Hdf5Dataset& list, hid_t type, std::int64_t first, std::int64_t count, void* elements)
{
    const auto begin = static_cast<hsize_t>(first);
    const auto size = static_cast<hsize_t>(count);
    const Hdf5Space place = spaceOf(list);
    made(H5Sselect_hyperslab(place.id(), H5S_SELECT_SET, &begin, nullptr, &size, nullptr));
    const Hdf5Space memory(made(H5Screate_simple(1, &size, nullptr)));
    made(H5Dread(list.id(), type, memory.id(), place.id(), H5P_DEFAULT, elements));
}

} // namespace ko
