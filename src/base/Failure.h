#pragma once

#include <stdexcept>
#include <string>
#include <system_error>

namespace quillmark {

/// The one type of exception: a number and a description, which the message of a failed run shows
/// to the user. docs/manual/errors.md lists every number.
class Failure : public std::runtime_error {
public:
    Failure(int number, const std::string& description)
        : std::runtime_error(description), number_(number) {}

    int number() const { return number_; }
    std::string description() const { return what(); }

private:
    int number_;
};

/// 5: a text or a position that the called procedure cannot work with.
Failure invalidProcedureCall();
/// 5: a setting or option that a check cannot work with; `detail` says which and why.
Failure invalidValue(const std::string& detail);
/// 6: a number that does not fit the field it is meant for.
Failure overflow();
/// 53: a file that is not there.
Failure fileNotFound();
/// 70: a file or folder that the user may not read or write.
Failure permissionDenied();
/// 76: a folder that is not there.
Failure pathNotFound();
/// 1001: a settings file that ends before its last field.
Failure unexpectedEndOfFile();
/// 1002: a disk without room for what is to be written.
Failure diskFull();
/// 1003: any other refusal of the local disk; `detail` is the system's own wording.
Failure diskFailure(const std::string& detail);

/// Turns an error of the local disk into a Failure. `missing` is the one for a path that does not
/// exist: fileNotFound() or pathNotFound().
Failure failureFromError(const std::error_code& error, const Failure& missing);

/// "An Error Has Occurred (Overflow(6))": the message that a failure inside a run leaves.
std::string errorMessage(const Failure& failure);

} // namespace quillmark
