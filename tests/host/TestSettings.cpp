// Settings: defaults, keeping, limits, a file that cannot be written.
#include "host/Settings.h"
#include "tests/host/Support.h"

namespace {

TEST(Settings, AreKeptInTheFile) {
    Folder folder;
    const QString file = folder.File("kelvara.ini");
    const QStringList converter{"dwg2dxf", "{in}", "-o", "{out}", "with, comma"};
    {
        host::Settings settings(file);
        EXPECT_EQ(settings.LanguageIndex(), 0);
        EXPECT_EQ(settings.CodePage(), 1252);
        EXPECT_EQ(settings.DwgConverter(), QStringList());
        EXPECT_TRUE(settings.DatabaseUrl().startsWith("sqlite:/"));
        settings.SetLanguageIndex(19);
        settings.SetCodePage(1251);
        settings.SetDwgConverter(converter);
        settings.SetNetworkFolder("//server/Projectos é");
        settings.SetDatabaseUrl("sqlite:/srv/a=b;c.sqlite");
        EXPECT_EQ(settings.RecentFiles(), QStringList());
        settings.SetRecentFiles({"/a, b.dxf", "/é.dxf"});
        settings.SetProjectLanguage("/a/b [1]/c;d=e%.dxf", 4);
        settings.SetProjectLanguage("/a/caf\xE9.dxf", 5);
        settings.SetProjectLanguage("/a/caf\xE8.dxf", 6);
    }
    host::Settings settings(file);
    EXPECT_EQ(settings.LanguageIndex(), 19);
    EXPECT_EQ(settings.CodePage(), 1251);
    EXPECT_EQ(settings.DwgConverter(), converter);
    EXPECT_EQ(settings.RecentFiles(), (QStringList{"/a, b.dxf", "/é.dxf"}));
    EXPECT_EQ(settings.NetworkFolder(), "//server/Projectos é");
    EXPECT_EQ(settings.DatabaseUrl(), "sqlite:/srv/a=b;c.sqlite");
    EXPECT_EQ(settings.ProjectLanguage("/a/b [1]/c;d=e%.dxf"), 4);
    EXPECT_EQ(settings.ProjectLanguage("/a/caf\xE9.dxf"), 5);
    EXPECT_EQ(settings.ProjectLanguage("/a/caf\xE8.dxf"), 6);
    EXPECT_EQ(settings.ProjectLanguage("/a/other.dxf"), std::nullopt);
}

TEST(Settings, LanguageOutOfRangeNeverReachesTheCatalogues) {
    Folder folder;
    const QString file = folder.File("kelvara.ini");
    host::Settings settings(file);
    for (int index : {-1, 25}) {
        EXPECT_NE(ErrorOf([&] { settings.SetLanguageIndex(index); }), "");
    }
    WriteFile(file, "[interface]\nlanguage=99\n");
    EXPECT_EQ(host::Settings(file).LanguageIndex(), 0);
}

TEST(Settings, FileThatCannotBeWrittenIsSaid) {
    Folder folder;
    const ReadOnly closed(folder.File("."));
    const OrdinaryUser user;
    host::Settings settings(folder.File("kelvara.ini"));
    const std::string error = ErrorOf([&] { settings.SetCodePage(1250); });
    EXPECT_NE(error.find("cannot be written"), std::string::npos) << error;
}

}  // namespace
