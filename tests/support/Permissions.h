// Users and permissions of files, changed for as long as a test needs it.
#pragma once

#include <QString>
#include <string>

// Tests may run as root, whom no permission stops: while this lives they do not.
class OrdinaryUser {
  public:
    OrdinaryUser();
    ~OrdinaryUser();

  private:
    unsigned before;
};

// A file or folder that cannot be written. The permissions are given back at the end.
class ReadOnly {
  public:
    explicit ReadOnly(const QString& path);
    ~ReadOnly();

  private:
    std::string path;
    unsigned before;
};

// No file can grow beyond that size, as on a full disk.
class FullDisk {
  public:
    explicit FullDisk(unsigned long largestFile);
    ~FullDisk();

  private:
    unsigned long before;
    void (*handler)(int);
};
