#include "host/recording/Hdf5Reading.h"

#include "host/setup/SetupFile.h"
#include "host/support/InputError.h"

namespace ko {

namespace {

template <class Number> Number attributeOf(hid_t object, const char* name, hid_t type)
{
    const Hdf5Attribute attribute(made(H5Aopen(object, name, H5P_DEFAULT)));
    Number number{};
    made(H5Aread(attribute.id(), type, &number));
    return number;
}

} // namespace

Hdf5File openedToRead(const std::string& file)
{
    refuseDevice(file);
    beginHdf5();
    Hdf5File opened(H5Fopen(file.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT));
    if (opened.id() < 0)
        opened = Hdf5File(H5Fopen(file.c_str(), H5F_ACC_RDONLY | H5F_ACC_SWMR_READ, H5P_DEFAULT));
    if (opened.id() < 0)
        throw InputError(file + ": is no recording: " + hdf5Reason());
    return opened;
}

std::string textOf(hid_t object, const char* name)
{
    const Hdf5Attribute attribute(made(H5Aopen(object, name, H5P_DEFAULT)));
    const Hdf5Type type(made(H5Aget_type(attribute.id())));
    if (made(H5Tis_variable_str(type.id())) > 0) {
        char* text = nullptr;
        made(H5Aread(attribute.id(), textType().id(), &text));
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

void forEachName(hid_t group, const std::function<void(const std::string& name)>& visit)
{
    H5G_info_t info{};
    made(H5Gget_info(group, &info));
    for (hsize_t i = 0; i < info.nlinks; ++i) {
        char name[256];
        made(H5Lget_name_by_idx(group, ".", H5_INDEX_NAME, H5_ITER_INC, i, name, sizeof name, H5P_DEFAULT));
        visit(name);
    }
}

std::int64_t sizeOf(const Hdf5Dataset& list)
{
    const Hdf5Space space(made(H5Dget_space(list.id())));
    return static_cast<std::int64_t>(made(H5Sget_simple_extent_npoints(space.id())));
}

void readPart(const Hdf5Dataset& list, hid_t type, std::int64_t first, std::int64_t count, void* elements)
{
    const auto begin = static_cast<hsize_t>(first);
    const auto size = static_cast<hsize_t>(count);
    const Hdf5Space place(made(H5Dget_space(list.id())));
    made(H5Sselect_hyperslab(place.id(), H5S_SELECT_SET, &begin, nullptr, &size, nullptr));
    const Hdf5Space memory(made(H5Screate_simple(1, &size, nullptr)));
    made(H5Dread(list.id(), type, memory.id(), place.id(), H5P_DEFAULT, elements));
}

} // namespace ko
