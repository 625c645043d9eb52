#include "web/site/HostListing.h"

#include "support/RunFakes.h"
#include "web/site/HostSource.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmark::web::test {
namespace {

std::string described(const SiteEntry& entry) {
    if (entry.kind == SiteEntry::Kind::Link) {
        return "link <" + entry.name + "> to <" + entry.leadsTo + ">";
    }
    return (entry.kind == SiteEntry::Kind::File ? "file <" : "folder <") + entry.name + "> " +
           std::to_string(entry.size);
}

std::string described(const HostListing& listing) {
    const std::string text = listing.entries.empty() ? "none" : described(listing.entries.front());
    return listing.understood ? text : "not understood";
}

struct Row {
    const char* from;
    std::string line;
    const char* entry;
};

const std::string Vsftpd = "-rw-r--r--    1 0        0               2 Nov 21 20:26 ";
const std::string ProFtpd = "perm=adfrw;size=2;type=file;UNIX.mode=0644; ";

TEST(HostListing, TakesTheLinesOfRealHosts) {
    const std::vector<Row> rows = {
        {"vsftpd", Vsftpd + "my page.html", "file <my page.html> 2"},
        {"vsftpd", Vsftpd + " leading", "file < leading> 2"},
        {"vsftpd", Vsftpd + "trailing \r", "file <trailing > 2"},
        {"vsftpd", "-rw-r--r--    1 0        0        5368709120 Nov 21 20:26 big.iso",
         "file <big.iso> 5368709120"},
        {"vsftpd", Vsftpd + "caf\xE9.html", "file <caf\xE9.html> 2"},
        {"vsftpd", "drwxrwxrwt    2 0        0            4096 Nov 21 20:26 tmp",
         "folder <tmp> 4096"},
        {"vsftpd", "prw-r--r--    1 0        0               0 Nov 21 20:26 pipe", "none"},
        {"vsftpd", "lrwxrwxrwx    1 0        0              12 Nov 21 20:26 today -> my page.html",
         "link <today> to <my page.html>"},
        {"vsftpd", "lrwxrwxrwx    1 0        0               7 Nov 21 20:26 to -> b -> nowhere",
         "link <to -> b> to <nowhere>"},
        {"ProFTPD", "----------   1 webmaster 0               0 Mar  5  2019 old", "file <old> 0"},
        {"ProFTPD SFTP",
         "lrwxrwxrwx    1 webmaster 0               6 Nov 21 20:26 pics -> /home/me/www/images",
         "link <pics> to </home/me/www/images>"},
        {"OpenSSH", "drwxr-xr-x    4 root     root         4096 Nov 21 20:26 .", "none"},
        {"OpenSSH", "drwxr-xr-x    4 root     root         4096 Nov 21 20:26 ..", "none"},
        {"ls", "total 12", "none"},
        {"ls", "", "none"},
        {"ls", "-rw-r--r--+ 1 me me 12 2024-01-31 12:00 acl", "file <acl> 12"},
        {"ls", "crw-rw-rw- 1 root root 1, 3 Jan  1 12:00 null", "none"},
        {"no group", "-rw-r--r--   1 1000      2024 Jan 31 12:00 a b", "file <a b> 2024"},
        {"day first", "-rw-r--r--   1 me  me  12 31 Jan 2024 a", "file <a> 12"},
        {"another language", "-rw-r--r--   1 me  me  12 M\xC3\xA4r 31 12:00 a", "file <a> 12"},
        {"a group with a blank", "drwxr-xr-x   2 me  domain users 4096 Jan  1 12:00 docs",
         "folder <docs> 4096"},
        {"a name like a date", "-rw-r--r-- 1 me me 12 Jan  1 12:00 4711 Jan 31 12:00 x",
         "file <4711 Jan 31 12:00 x> 12"},
        {"Netware", "d [R----F--] supervisor            512       Jan 16 18:53    login",
         "folder <   login> 512"},
        {"a path", "-rw-r--r--   1 me  me  12 Jan  1 12:00 ../../etc/x", "none"},
        {"no name", "-rw-r--r--   1 me  me  12 Jan  1 12:00 ", "not understood"},
        {"IIS", "02-10-11  05:09PM       <DIR>          aspnet client", "folder <aspnet client> 0"},
        {"IIS", "02-10-11  05:09PM                  689 iis start.htm\r",
         "file <iis start.htm> 689"},
        {"IIS", "02-10-2011  05:09PM       <DIR>           blank", "folder < blank> 0"},
        {"IIS", "02-10-11  17:09           5368709120  blank", "file < blank> 5368709120"},
        {"IIS", "02-10-11  05:09PM       <JUNCTION>     x", "not understood"},
        {"EPLF", "+i8388621.29609,m824255902,/,\tdev", "not understood"},
        {"VMS", "CORE.DIR;1          1  8-SEP-1996 16:09 [SYSTEM] (RWE,RWE,RE,RE)",
         "not understood"},
    };
    for (const Row& row : rows) {
        HostListing listing;
        listing.takeLine(row.line);
        EXPECT_EQ(described(listing), row.entry) << row.from << ": " << row.line;
    }
}

TEST(HostListing, TakesFacts) {
    const std::vector<Row> rows = {
        {"ProFTPD",
         "modify=20261121202622;perm=adfrw;size=5368709120;type=file;unique=FE00UA726A9;"
         "UNIX.group=0;UNIX.mode=0644; big.iso",
         "file <big.iso> 5368709120"},
        {"ProFTPD", ProFtpd + " leading", "file < leading> 2"},
        {"ProFTPD", ProFtpd + "a;b=c ; d\r", "file <a;b=c ; d> 2"},
        {"ProFTPD", "perm=flcdmpe;type=dir;UNIX.mode=02775; images", "folder <images> 0"},
        {"ProFTPD", "perm=flcdmpe;type=cdir;UNIX.mode=0755; .", "none"},
        {"ProFTPD", "perm=flcdmpe;type=pdir;UNIX.mode=0755; up", "none"},
        {"ProFTPD", "perm=adfrw;size=12;type=OS.unix=symlink;UNIX.mode=0777; today",
         "file <today> 12"},
        {"the slink form", "type=OS.UNIX=slink:my page.html;perm=r; today",
         "link <today> to <my page.html>"},
        {"capital letters", "Type=Dir;Size=1; \xE9", "folder <\xE9> 1"},
        {"a path", "type=dir; /etc", "none"},
        {"no facts", "x", "none"},
        {"no facts", "-rw-r--r--   1 me  me  12 Jan  1 12:00 a=1; b", "none"},
        {"no name", "type=file; ", "none"},
    };
    for (const Row& row : rows) {
        HostListing listing;
        listing.takeFacts(row.line);
        EXPECT_EQ(described(listing), row.entry) << row.from << ": " << row.line;
    }
}

/// A host that lists every folder by these lines, and by facts if it has any.
class ListedHost : public quillmark::test::FolderHost {
public:
    void list(std::string_view /*directory*/, const DirItem& item) override {
        std::for_each(lines.begin(), lines.end(), item);
    }
    bool listFacts(std::string_view /*directory*/, const DirItem& item) override {
        std::for_each(facts.begin(), facts.end(), item);
        return !facts.empty();
    }

    quillmark::Lines lines = {"-rw-r--r--   1 me  me  12 Jan  1 12:00 other.html",
                              "+i8388621.48594,m825718503,r,s280,\tmy page.html"};
    quillmark::Lines facts = {"type=file;size=280; my page.html"};
};

TEST(HostSource, AsksForFactsWhereTheListingIsNotUnderstood) {
    ListedHost host;
    DiskAdapter disk;
    HostSource source(host, disk, "");
    const auto nameOfOnlyEntry = [&source] {
        const std::vector<SiteEntry> entries = source.list("/www/");
        return entries.size() == 1 ? entries.front().name : std::to_string(entries.size());
    };
    EXPECT_EQ(nameOfOnlyEntry(), "my page.html");
    host.facts.clear();
    EXPECT_EQ(nameOfOnlyEntry(), "other.html");
    host.lines.erase(host.lines.begin());
    EXPECT_THROW(nameOfOnlyEntry(), Failure);
}

} // namespace
} // namespace quillmark::web::test
