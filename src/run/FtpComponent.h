#pragma once

#include "run/FtpLogin.h"

#include <functional>
#include <string_view>

namespace quillmark {

/// The conversation with one web host. Paths are host paths, "/" form, as the bytes that the host
/// or a page gave. A connection that is lost, and stays lost after one attempt to log in anew, is a
/// Failure. Once Stop is pressed a waiting operation returns soon, with what it has; a full list
/// lets a listing come to its end.
class FtpComponent {
public:
    using DirItem = std::function<void(std::string_view line)>;

    virtual ~FtpComponent() = default;

    /// Connects and logs in, ready for binary transfers in stream mode. What went wrong shows in
    /// connected() afterwards.
    virtual void connect(const FtpLogin& login) = 0;
    /// Whether the connection state is 1, connected.
    virtual bool connected() const = 0;
    /// Never fails.
    virtual void disconnect() = 0;

    /// Tell what will be listed or retrieved next but for what was told before, so that it can be
    /// had ahead. What is asked for in another order is had all the same.
    virtual void expectListing(std::string_view /*directory*/) {}
    virtual void expectFile(std::string_view /*remoteFile*/) {}

    /// Lists a directory; each line of the listing, as the host sent it, goes to `item` before the
    /// call returns. Throws a Failure when the listing fails.
    virtual void list(std::string_view directory, const DirItem& item) = 0;
    /// The same for the directory that the host calls the current one.
    virtual void listWorkingDirectory(const DirItem& item) = 0;

    /// Lists a directory, the current one if it is empty, by facts (MLSD, RFC 3659): such lines
    /// tell what an entry is, its size and its name apart. False, with nothing listed, where the
    /// host has no such listing.
    virtual bool listFacts(std::string_view directory, const DirItem& item) = 0;

    /// Retrieves a file into a local one ("\" form). False when the host refuses the transfer;
    /// there is no local file then.
    virtual bool retrieve(std::string_view remoteFile, std::string_view localFile) = 0;

    /// Deletes a file of the host. Throws a Failure when the host refuses, and when the work is
    /// aborted before the host has answered.
    virtual void deleteFile(std::string_view remoteFile) = 0;
    /// The same for a directory.
    virtual void removeDirectory(std::string_view directory) = 0;
};

} // namespace quillmark
