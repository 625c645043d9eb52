#include "base/Failure.h"

namespace quillmark {

Failure invalidProcedureCall() {
    return {5, "Invalid procedure call or argument"};
}
Failure invalidValue(const std::string& detail) {
    return {5, detail};
}
Failure overflow() {
    return {6, "Overflow"};
}
Failure fileNotFound() {
    return {53, "File not found"};
}
Failure permissionDenied() {
    return {70, "Permission denied"};
}
Failure pathNotFound() {
    return {76, "Path not found"};
}
Failure unexpectedEndOfFile() {
    return {1001, "Unexpected end of file"};
}
Failure diskFull() {
    return {1002, "Disk full"};
}
Failure diskFailure(const std::string& detail) {
    return {1003, "Disk failure: " + detail};
}

Failure failureFromError(const std::error_code& error, const Failure& missing) {
    if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory) {
        return missing;
    }
    // To the user a read-only disk is a matter of permission, too.
    if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
        error == std::errc::read_only_file_system) {
        return permissionDenied();
    }
    if (error == std::errc::no_space_on_device) {
        return diskFull();
    }
    return diskFailure(error.message());
}

std::string errorMessage(const Failure& failure) {
    return "An Error Has Occurred (" + failure.description() + "(" +
           std::to_string(failure.number()) + "))";
}

} // namespace quillmark
