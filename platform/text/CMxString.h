// CMxString: the string that the host's framework takes and gives.
#pragma once

#include <QString>
#include <string>

#include "platform/text/CString.h"

class CMxString {
  public:
    CMxString() = default;
    CMxString(const char16_t* wide);
    CMxString(const char* narrow);  // UTF-8; null gives an empty string
    CMxString(const std::u16string& wide);
    CMxString(const CString& wide);
    CMxString(const QString& text) : text(text) {}

    std::string ansi_str() const;  // the narrow form, UTF-8
    std::u16string wide_str() const { return text.toStdU16String(); }
    bool isEmpty() const { return text.isEmpty(); }
    operator const QString&() const { return text; }

    friend bool operator==(const CMxString& a, const CMxString& b) { return a.text == b.text; }
    friend bool operator<(const CMxString& a, const CMxString& b) { return a.text < b.text; }

  private:
    QString text;
};
