// Code page functions, module file names, paths and numbers as Windows has them.
#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>

#include "platform/text/Conversion.h"
#include "platform/win32/CodePages.h"
#include "platform/win32/LastError.h"
#include "platform/win32/Modules.h"
#include "platform/win32/Numbers.h"
#include "platform/win32/Paths.h"

namespace {

std::string ToAnsi(std::u16string_view wide) {
    std::string out(100, '\0');
    int length = WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()),
                                     out.data(), 100, nullptr, nullptr);
    return out.substr(0, length);
}

std::u16string FromAnsi(std::string_view narrow, DWORD flags = MB_PRECOMPOSED) {
    std::u16string out(100, u'\0');
    int length = MultiByteToWideChar(CP_ACP, flags, narrow.data(), static_cast<int>(narrow.size()),
                                     out.data(), 100);
    return out.substr(0, length);
}

TEST(AnsiCodePage, ReplacesWhatThePageLacks) {
    EXPECT_EQ(ToAnsi(u"é€Щ🔌\xD800 \xDC81."), "\xE9\x80??? ?.");
    EXPECT_EQ(FromAnsi("\xE9\x80"), u"é€");
    EXPECT_EQ(FromAnsi("a\x81"), u"a\xFFFD");
    EXPECT_EQ(FromAnsi("a\x81", MB_ERR_INVALID_CHARS), u"");
    EXPECT_EQ(GetLastError(), ERROR_NO_UNICODE_TRANSLATION);
    char out[4];
    BOOL replaced = 0;
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, u"aЩ", 2, out, 4, "#", &replaced), 2);
    EXPECT_EQ(std::string(out, 2), "a#");
    EXPECT_TRUE(replaced);
}

TEST(AnsiCodePage, IsTheOneThatIsSetAndOfSingleBytes) {
    SetAnsiCodePage(1251);
    EXPECT_EQ(ToAnsi(u"Щит é"), "\xD9\xE8\xF2 ?");
    EXPECT_THROW(SetAnsiCodePage(932), std::invalid_argument);
    EXPECT_THROW(SetAnsiCodePage(CP_UTF8), std::invalid_argument);
    EXPECT_THROW(SetAnsiCodePage(4711), std::invalid_argument);
    EXPECT_EQ(GetACP(), 1251u);
    SetAnsiCodePage(1252);
}

TEST(AnsiCodePage, CountsRoomAndTerminator) {
    char16_t wide[4];
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", -1, nullptr, 0), 4);
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", -1, wide, 4), 4);
    EXPECT_EQ(std::u16string(wide), u"abc");
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", -1, wide, 3), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    char narrow[3] = "__";
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, u"é", -1, narrow, 2, nullptr, nullptr), 0);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, u"é", -1, narrow, 3, nullptr, nullptr), 3);
    EXPECT_STREQ(narrow, "é");
    for (UINT page : {4711u, CP_ACP}) {
        EXPECT_EQ(MultiByteToWideChar(page, 0, "abc", 0, wide, 4), 0);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
}

TEST(Modules, GiveTheirFileNamesInWindowsSpelling) {
    char16_t name[MAX_PATH];
    DWORD length = GetModuleFileNameW(nullptr, name, MAX_PATH);
    std::filesystem::path image = std::filesystem::read_symlink("/proc/self/exe");
    EXPECT_EQ(NativePath({name, length}), image.string());
    EXPECT_EQ(std::u16string(name).find(u'/'), std::u16string::npos);

    HMODULE program = ModuleOfAddress(reinterpret_cast<void*>(&ToAnsi));
    length = GetModuleFileNameW(program, name, MAX_PATH);
    EXPECT_EQ(NativePath({name, length}), image.string());

    HMODULE library = ModuleOfAddress(reinterpret_cast<void*>(&GetACP));
    ASSERT_NE(library, program);
    length = GetModuleFileNameW(library, name, MAX_PATH);
    std::filesystem::path file = NativePath({name, length});
    EXPECT_TRUE(file.is_absolute());
    EXPECT_TRUE(std::filesystem::exists(file));
    EXPECT_NE(file.filename().string().find("kv_win32"), std::string::npos);
}

TEST(Modules, CutANameThatDoesNotFit) {
    char16_t name[5] = u"zzzz";
    EXPECT_EQ(GetModuleFileNameW(nullptr, name, 5), 5u);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(std::u16string(name).size(), 4u);
    int local = 0;
    EXPECT_EQ(GetModuleFileNameW(&local, name, 5), 0u);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
}

TEST(Paths, RunsOfSeparatorsBecomeOneSlash) {
    EXPECT_EQ(NativePath(u"\\a\\\\program\\b.config"), "/a/program/b.config");
    EXPECT_EQ(NativePath(u"rel/x\\\\/y é🔌"), "rel/x/y é🔌");
    EXPECT_EQ(NativePath(u""), "");
}

TEST(Paths, NamesOfAnyBytesComeBack) {
    std::mt19937 random(3);
    for (int round = 0; round < 1000; ++round) {
        std::string native = "/";
        while (native.size() < 12) {
            char byte = static_cast<char>(1 + random() % 255);
            if (byte != '\\' && byte != '/') native += byte;
        }
        EXPECT_EQ(NativePath(WindowsPath(native)), native);
    }
}

TEST(Numbers, AreReadUpToTheFirstOtherCharacter) {
    const std::pair<const char16_t*, int> cases[] = {{u"12", 12},
                                                     {u" \t-5x", -5},
                                                     {u"+7", 7},
                                                     {u"", 0},
                                                     {u"x1", 0},
                                                     {u"- 1", 0},
                                                     {u"٣", 0},
                                                     {u"2147483648", INT_MAX},
                                                     {u"-99999999999999999999", INT_MIN},
                                                     {nullptr, 0},
                                                     {u"007", 7}};
    for (auto [text, number] : cases) EXPECT_EQ(_wtoi(text), number);
}

}  // namespace
