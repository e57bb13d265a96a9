#include "support/watched_disk.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <dlfcn.h>
#include <unistd.h>

/// In place of the library's, for the program and its engine alike: thousands of books are opened here, and a key of
/// 64,000 rounds takes longer than all the rest. Such books open in this program alone.
extern "C" __attribute__((visibility("default"))) int PKCS5_PBKDF2_HMAC_SHA1(const char* password, int passwordBytes,
    const unsigned char* salt, int saltBytes, int rounds, int keyBytes, unsigned char* key)
{
    static const auto real =
        reinterpret_cast<decltype(&PKCS5_PBKDF2_HMAC_SHA1)>(::dlsym(RTLD_NEXT, "PKCS5_PBKDF2_HMAC_SHA1"));
    return real(password, passwordBytes, salt, saltBytes, std::min(rounds, 2), keyBytes, key);
}

/// A file system in memory confirms at no cost; what a disk would have confirmed, the log knows. Nothing of the user's
/// own folders is touched.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (::access("/dev/shm", W_OK) == 0)
        qputenv("TMPDIR", "/dev/shm");
    const QTemporaryDir home;
    for (const char* const name : {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME"})
        qputenv(name, home.path().toUtf8());
    const QCoreApplication application(argc, argv);
    lorvan::test::WatchedDisk::install();
    return RUN_ALL_TESTS();
}
