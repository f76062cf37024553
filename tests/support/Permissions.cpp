// Effective users, modes of files, limits of their size.
#include "tests/support/Permissions.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace {

constexpr unsigned kNobody = 65534;

rlim_t SetLargestFile(rlim_t size) {
    rlimit limit;
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlim_t before = std::exchange(limit.rlim_cur, size);
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    return before;
}

}  // namespace

OrdinaryUser::OrdinaryUser() : before(geteuid()) {
    if (before != 0) return;
    EXPECT_EQ(seteuid(kNobody), 0);
}

OrdinaryUser::~OrdinaryUser() {
    if (before != 0) return;
    EXPECT_EQ(seteuid(0), 0);
}

ReadOnly::ReadOnly(const QString& path) : path(path.toStdString()) {
    struct stat status;
    EXPECT_EQ(stat(this->path.c_str(), &status), 0);
    before = status.st_mode & 07777;
    EXPECT_EQ(chmod(this->path.c_str(), before & 0555), 0);
}

ReadOnly::~ReadOnly() { chmod(path.c_str(), before); }

FullDisk::FullDisk(unsigned long largestFile)
    : before(SetLargestFile(largestFile)), handler(std::signal(SIGXFSZ, SIG_IGN)) {}

FullDisk::~FullDisk() {
    SetLargestFile(before);
    std::signal(SIGXFSZ, handler);
}
