#include "host/window/UnsavedCopies.h"

#include "host/support/FileWriter.h"
#include "host/support/InputError.h"
#include "widgets/support/Convert.h"

#include <QDir>
#include <QUuid>
#include <algorithm>
#include <filesystem>

namespace ko {

namespace {

constexpr const char* ending = ".unsaved";

} // namespace

UnsavedCopy::UnsavedCopy(std::string file) : file_(std::move(file))
{
    lock();
}

void UnsavedCopy::lock()
{
    // An earlier lock would remove the file of this one.
    lock_.reset();
    lock_ = std::make_unique<QLockFile>(toQt(file_ + ".lock"));
    // The lock of a program that runs never expires.
    lock_->setStaleLockTime(0);
    if (!lock_->tryLock(0))
        lock_.reset();
}

bool UnsavedCopy::keepLocked()
{
    if (lock_ && QFileInfo::exists(lock_->fileName()))
        return true;
    createFolder(folderOf(file_));
    lock();
    return lock_ != nullptr;
}

UnsavedCopy UnsavedCopy::create(const std::string& folder)
{
    createFolder(folder);
    UnsavedCopy copy(folder + "/" + fromQt(QUuid::createUuid().toString(QUuid::Id128)) + ending);
    if (!copy.lock_)
        throw InputError(copy.file_ + ": cannot be saved: the folder cannot be written");
    return copy;
}

std::vector<UnsavedCopy> UnsavedCopy::abandoned(const std::string& folder)
{
    std::vector<UnsavedCopy> copies;
    const QDir dir(toQt(folder), QStringLiteral("*") + ending, QDir::Time, QDir::Files);
    for (const QString& name : dir.entryList())
        if (UnsavedCopy copy(folder + "/" + fromQt(name)); copy.lock_)
            copies.push_back(std::move(copy));
    return copies;
}

QDateTime UnsavedCopy::time() const
{
    return QFileInfo(toQt(file_)).lastModified();
}

void UnsavedCopy::remove() const
{
    std::error_code error;
    std::filesystem::remove(file_, error);
    if (error)
        throw InputError(file_ + ": cannot be removed: " + error.message());
}

std::string UnsavedCopy::setAside() const
{
    const std::string aside = file_ + ".damaged";
    std::error_code error;
    std::filesystem::rename(file_, aside, error);
    return error ? file_ : aside;
}

} // namespace ko
