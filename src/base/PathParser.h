#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmark {

/// Splits a path in "/" form, "\" form or a mix of both into its parts. It only searches the text
/// and never looks at the disk. The parts are views of the text that was given, and are valid as
/// long as it is.
class PathParser {
public:
    PathParser() = default;
    explicit PathParser(std::string_view spec) { FileSpec(spec); }
    explicit PathParser(std::string&& spec) = delete; ///< Its parts would outlive it.

    /// Sets the path that all functions below split.
    void FileSpec(std::string_view spec);
    void FileSpec(std::string&& spec) = delete;
    std::string_view FileSpec() const { return spec_; }

    /// 1-based position of the first character of the file name: behind the last separator of
    /// either kind, or, without any separator, behind the first ":" ("C:page.htm" gives 3), or 1.
    std::size_t NameStart() const { return nameStart_; }
    /// Everything before the name, with the final separator.
    std::string_view Path() const { return spec_.substr(0, nameStart_ - 1); }
    /// Everything from the name start on; empty if the path ends in a separator.
    std::string_view FileName() const { return spec_.substr(nameStart_ - 1); }
    /// What follows the last "." of the whole path ("site.dir/readme" gives "dir/readme": callers
    /// compare with known extensions, so a stray match is harmless). Empty without a ".".
    std::string_view Extension() const;
    /// The file name before its first "." ("a.b.html" gives "a").
    std::string_view BaseName() const;
    /// The path on the server: "scheme://server/dir/a.htm" gives "dir/a.htm". Empty without "//" or
    /// without a "/" behind it.
    std::string_view HostPath() const;

private:
    std::string_view spec_;
    std::size_t nameStart_ = 1;
};

} // namespace quillmark
