#pragma once

namespace tarvex {

/// Why an operation on an open file or an open itself failed.
enum class FileProblem {
    NotFound,      ///< the file does not exist
    PathNotFound,  ///< its folder does not exist
    AccessDenied,  ///< read-only file or medium, or no right
    InUse,         ///< another program has the file open
    DiskFull,      ///< no room for the data
    Device         ///< any other failure of reading or writing
};

/// Thrown by file operations that cannot report a failure through their result.
struct FileFailure {
    FileProblem problem;
};

}  // namespace tarvex
