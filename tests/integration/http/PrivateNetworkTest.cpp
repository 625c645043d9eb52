#include "platform/http/PrivateNetwork.h"

#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>

namespace quillmark::test {
namespace {

bool isPrivateText(const std::string& text) {
    sockaddr_in four{AF_INET, 0, {}, {}};
    sockaddr_in6 six{AF_INET6, 0, 0, {}, 0};
    if (::inet_pton(AF_INET, text.c_str(), &four.sin_addr) == 1) {
        return isPrivate(reinterpret_cast<const sockaddr&>(four));
    }
    EXPECT_EQ(::inet_pton(AF_INET6, text.c_str(), &six.sin6_addr), 1) << text;
    return isPrivate(reinterpret_cast<const sockaddr&>(six));
}

/// Of addresses with blanks between them.
void expectPrivate(bool expected, const std::string& addresses) {
    std::istringstream words(addresses);
    for (std::string address; words >> address;) {
        EXPECT_EQ(isPrivateText(address), expected) << address;
    }
}

TEST(PrivateNetwork, IsToldFromThePublicInternet) {
    // The first and the last address of each network, and those beside them.
    expectPrivate(true, "0.0.0.0 0.255.255.255 10.0.0.0 10.255.255.255 100.64.0.0 100.127.255.255 "
                        "127.0.0.1 127.255.255.255 169.254.0.0 169.254.169.254 172.16.0.0 "
                        "172.31.255.255 192.168.0.0 192.168.255.255 198.18.0.0 224.0.0.1 "
                        "255.255.255.255 :: ::1 ::ffff:127.0.0.1 ::ffff:10.1.2.3 64:ff9b::a00:1 "
                        "64:ff9b:1::8.8.8.8 2002:7f00:1:: fc00::1 fdff::1 fe80::1 febf::1 fec0::1 "
                        "ff02::1");
    expectPrivate(false, "1.0.0.0 9.255.255.255 11.0.0.0 100.63.255.255 100.128.0.0 "
                         "126.255.255.255 128.0.0.0 169.253.255.255 169.255.0.0 172.15.255.255 "
                         "172.32.0.0 192.167.255.255 192.169.0.0 198.17.255.255 198.20.0.0 "
                         "223.255.255.255 ::ffff:8.8.8.8 64:ff9b::808:808 2002:808:808:: "
                         "2001:4860:4860::8888 2a00::1");
}

} // namespace
} // namespace quillmark::test
