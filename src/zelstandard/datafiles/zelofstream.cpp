#include <zelstandard/datafiles/zelofstream.h>

#include <array>

#include <zelstandard/platform/WindowsFiles.h>

zelofstream::zelofstream(const char* path, std::ios::openmode mode)
{
    if (!path)
        return;
    std::array<char, 4096> directory{};
    const DWORD length = GetTempPathA(directory.size(), directory.data());
    if (length == 0 || length >= directory.size())
        return;
    std::array<char, MAX_PATH + 1> name{};
    if (GetTempFileNameA(directory.data(), "zelofstream", 0, name.data()) == 0)
        return;
    target_ = path;
    temporary_ = name.data();

    const bool append = (mode & std::ios::app) != 0;
    if (append && GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES)
        CopyFileA(path, temporary_.c_str(), FALSE);

    file_ = std::make_unique<std::ofstream>(temporary_, mode | std::ios::out);
    if (file_->good())
        return;
    file_.reset(); // the temporary file stays: it may be of use to whoever looks for the reason
    target_.clear();
    temporary_.clear();
}

zelofstream::~zelofstream()
{
    if (file_) {
        // Whatever a caller has asked of the stream: a destructor has no one to tell.
        file_->exceptions(std::ios::goodbit);
        try {
            file_->flush();
            if (!file_->rdbuf()->close())
                file_->setstate(std::ios::failbit);
        } catch (...) { // a locale of the caller's
        }
        file_.reset();
    }
    if (!temporary_.empty()) {
        DeleteFileA(target_.c_str());
        MoveFileA(temporary_.c_str(), target_.c_str());
    }
}

std::ostream& zelofstream::stream() { return file_ ? *file_ : nothing_; }
