#pragma once

#include "run/FtpLogin.h"

#include <functional>
#include <string_view>

namespace quillmark {

/// The conversation with one web host. Paths are host paths in "/" form, byte for byte as the host
/// or a page gave them. An operation throws a Failure if the connection is lost and one new login
/// does not bring it back. After Stop a waiting operation returns soon, with what it has; a listing
/// that fills a list is still read to its end.
class FtpComponent {
public:
    /// Takes one line of a listing, without its line end.
    using DirItem = std::function<void(std::string_view line)>;

    virtual ~FtpComponent() = default;

    /// Connects and logs in, ready for binary transfers in stream mode. If that fails, connected()
    /// is false afterwards.
    virtual void connect(const FtpLogin& login) = 0;
    /// Whether the connection state is 1, connected.
    virtual bool connected() const = 0;
    /// Logs out and closes the connection, if there is one. Never fails.
    virtual void disconnect() = 0;

    /// Announces what will be listed or retrieved after all that was announced before, so that it
    /// can be fetched ahead. Asking in another order works too.
    virtual void expectListing(std::string_view /*directory*/) {}
    virtual void expectFile(std::string_view /*remoteFile*/) {}

    /// Lists a directory; each line of the listing, as the host sent it, goes to `item` before the
    /// call returns. Throws a Failure when the listing fails.
    virtual void list(std::string_view directory, const DirItem& item) = 0;
    /// The same for the directory that the host calls the current one.
    virtual void listWorkingDirectory(const DirItem& item) = 0;

    /// Lists a directory, or the current one for an empty text, by facts (MLSD, RFC 3659): each
    /// line gives the type, the size and the name of an entry as separate fields. False, with
    /// nothing listed, if the host has no such listing.
    virtual bool listFacts(std::string_view directory, const DirItem& item) = 0;

    /// Retrieves a file into a local one ("\" form). False if the host refuses the transfer; there
    /// is no local file then.
    virtual bool retrieve(std::string_view remoteFile, std::string_view localFile) = 0;

    /// Deletes a file of the host. Throws a Failure when the host refuses, and when the work is
    /// aborted before the host has answered.
    virtual void deleteFile(std::string_view remoteFile) = 0;
    /// The same for a directory.
    virtual void removeDirectory(std::string_view directory) = 0;
};

} // namespace quillmark
