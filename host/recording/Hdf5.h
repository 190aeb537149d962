#pragma once

#include <cstdint>
#include <hdf5.h>
#include <string>
#include <utility>

namespace ko {

/// An HDF5 identifier that is closed by `close`, as `H5Dclose`.
template <herr_t (*close)(hid_t)> class Hdf5Handle {
public:
    Hdf5Handle() = default;
    explicit Hdf5Handle(hid_t id) : id_(id) {}
    ~Hdf5Handle() { reset(); }
    Hdf5Handle(Hdf5Handle&& other) noexcept : id_(std::exchange(other.id_, -1)) {}
    Hdf5Handle& operator=(Hdf5Handle&& other) noexcept
    {
        std::swap(id_, other.id_);
        return *this;
    }

    [[nodiscard]] hid_t id() const { return id_; }
    /// Returns false if the object is open and cannot be closed.
    bool reset()
    {
        const hid_t id = std::exchange(id_, -1);
        return id < 0 || close(id) >= 0;
    }

private:
    hid_t id_ = -1;
};

using Hdf5File = Hdf5Handle<H5Fclose>;
using Hdf5Group = Hdf5Handle<H5Gclose>;
using Hdf5Dataset = Hdf5Handle<H5Dclose>;
using Hdf5Space = Hdf5Handle<H5Sclose>;
using Hdf5Type = Hdf5Handle<H5Tclose>;
using Hdf5Attribute = Hdf5Handle<H5Aclose>;
using Hdf5Properties = Hdf5Handle<H5Pclose>;

/// Prepares the library; it prints nothing, and does nothing when the program ends. Called before any other use.
void beginHdf5();

/// Why the last call of the library has failed, in words.
std::string hdf5Reason();

/// Thrown for a call of the library that has failed. The next call forgets the reason.
struct LibraryFailure {
    std::string reason = hdf5Reason();
};

/// Returns the result of a call of the library; throws a `LibraryFailure` if it has failed.
template <class Result> Result made(Result result)
{
    if (result < 0)
        throw LibraryFailure();
    return result;
}

/// A text of variable length, UTF-8; or of a fixed number of bytes.
Hdf5Type textType();
Hdf5Type textType(std::size_t bytes);

/// Adds an attribute to an object. A text of a fixed number of bytes can be overwritten later.
void setText(hid_t object, const char* name, const std::string& text);
void setFixedText(hid_t object, const char* name, const std::string& text, std::size_t bytes);
void setNumber(hid_t object, const char* name, double number);
void setNumber(hid_t object, const char* name, std::int64_t number);

/// Adds an empty list to a group that grows by chunks of this many elements. `fill` is the value of elements that were
/// never written; null: unknown.
Hdf5Dataset makeList(hid_t group, const std::string& name, hid_t type, hsize_t chunk, const void* fill = nullptr);

/// Opens a list; what is read or written of it is not kept in memory.
Hdf5Dataset openedList(hid_t group, const std::string& name);

/// A list of `makeList`, opened in a file that others can read from now on. Failures are `LibraryFailure`s.
class GrowingList {
public:
    GrowingList() = default;
    GrowingList(hid_t group, const std::string& name, Hdf5Type type);

    [[nodiscard]] hid_t id() const { return data_.id(); }
    /// Writes `count` elements from number `first` on; the list ends with them.
    void write(hsize_t first, hsize_t count, const void* elements);

private:
    Hdf5Dataset data_;
    Hdf5Type type_; ///< of the elements
};

/// Overwrites an attribute with a value of its own type; works while the file is read. A text must have all its bytes,
/// see `padded`.
void overwrite(hid_t object, const char* name, const void* value);

/// Returns the text with as many null bytes as make it this long.
std::string padded(const std::string& text, std::size_t size);

} // namespace ko
