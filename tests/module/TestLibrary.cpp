// The library TQTradutor as a host sees it: its exports, its object, and its life in the host.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <filesystem>
#include <stdexcept>

#include "host/Host.h"
#include "platform/drawing/DbText.h"
#include "platform/drawing/OdError.h"
#include "platform/drawing/RxModule.h"
#include "platform/win32/Modules.h"
#include "tests/support/ScriptedServices.h"

// What a command that failed leaves behind, as it must.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:NovaJanela\nleak:NovoAssistente\n";
}

namespace {

constexpr const char* libraryPath = KV_BINARY_DIR "/lib/TQTradutor.so";
constexpr const char* drawingPath = KV_SOURCE_DIR "/tests/fixtures/ascii_r2000_lf.dxf";

// Never closed, as in a host.
void* Library() {
    static void* const library = dlopen(libraryPath, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!library) throw std::runtime_error(dlerror());
    return library;
}

template <class Function>
Function* Export(const char* name) {
    void* const symbol = dlsym(Library(), name);
    if (!symbol) throw std::runtime_error(dlerror());
    return reinterpret_cast<Function*>(symbol);
}

OdRxModule* Create(void** holder) {
    return Export<OdRxCreateModuleObject>("odrxCreateModuleObject")(holder);
}

void* LibraryHandle() { return ModuleOfAddress(dlsym(Library(), "odrxCreateModuleObject")); }

using Lines = std::vector<std::string>;

// The module in a host that opens real drawings.
class InHost : public ::testing::Test {
  protected:
    static host::HostOptions Options(const QTemporaryDir& folder) {
        host::HostOptions options;
        options.settingsFile = folder.filePath("settings.ini");
        options.logFile = folder.filePath("log.txt");
        return options;
    }
    Lines Commands() {
        Lines names;
        for (const auto& command : host.Commands().Commands())
            names.push_back(command->GetName().narrowText());
        return names;
    }
    QString LogText() {
        QFile file(folder.filePath("log.txt"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll());
    }

    int argc = 1;
    char name[13] = "module_tests";
    char* argv[2] = {name, nullptr};
    QCoreApplication application{argc, argv};
    QTemporaryDir folder;
    host::Host host{Options(folder)};
};

const Lines fourCommands{"KVCFGTRADELANG", "KVTRANSLATEEDITDIC", "KVTRANSLATEPROJ",
                         "KVTRANSLATEASSIST"};

}  // namespace

TEST(Library, TellsTheVersionThatItIsBuiltOn) {
    uint32_t version[4] = {};
    Export<OdRxGetAPIVersion>("odrxGetAPIVersion")(&version[0], &version[1], &version[2],
                                                   &version[3]);
    EXPECT_EQ(std::vector<uint32_t>(version, version + 4),
              (std::vector<uint32_t>{26, 8, 0, 54758}));
}

TEST(Library, HasOneModuleObjectThatOnlyItsDeletionEnds) {
    void* holder = LibraryHandle();
    OdRxModule* module = Create(&holder);
    EXPECT_EQ(holder, nullptr);
    EXPECT_EQ(module->sysData(), LibraryHandle());
    EXPECT_TRUE(module->moduleName().text().ends_with(u"\\TQTradutor.so"));
    EXPECT_EQ(module->isA(), OdRxModule::desc());

    int other = 0;
    holder = &other;
    EXPECT_EQ(Create(&holder), module);
    EXPECT_EQ(holder, &other);

    EXPECT_EQ(module->numRefs(), 0);
    {
        OdRxModulePtr held(module), again(held);
        EXPECT_EQ(module->numRefs(), 2);
    }
    EXPECT_EQ(module->numRefs(), 0);
    EXPECT_EQ(Create(&holder), module);

    // The next object is made anew, of the handle that is handed over then.
    module->deleteModule();
    module = Create(&holder);
    EXPECT_EQ(holder, nullptr);
    EXPECT_EQ(module->sysData(), &other);
    module->deleteModule();
}

TEST(Library, ShowsNothingButItsTwoExports) {
    const auto shownByIt = [](const char* name) {
        const void* symbol = dlsym(Library(), name);
        return symbol && ModuleOfAddress(symbol) == LibraryHandle();
    };
    EXPECT_TRUE(shownByIt("odrxCreateModuleObject"));
    EXPECT_TRUE(shownByIt("odrxGetAPIVersion"));
    for (const char* name : {"_ZN12CCEntryPoint7initAppEv", "_ZN8TQString4TrimEv",
                             "_ZN15OdRxWin32ModuleI11CTQTradutorS0_E9singletonE"})
        EXPECT_FALSE(shownByIt(name)) << name;
}

// The library brings no descriptors and no service pointers of its own.
TEST(Library, SharesDescriptorsAndServicesWithTheProgram) {
    EXPECT_EQ(Export<OdRxClass*()>("_ZN8OdDbText4descEv")(), OdDbText::desc());
    EXPECT_EQ(Export<OdRxClass*()>("_ZN10OdRxModule4descEv")(), OdRxModule::desc());
    ScriptedServices services;
    EXPECT_EQ(Export<CMxSystemServices*()>("_Z19GetMxSystemServicesv")(), &services);
    EXPECT_EQ(Export<CKVServices*()>("_Z21GetElectricalServicesv")(), &services);
}

TEST(Library, RegistersItsCommandsWithoutSystemServicesAndStopsWithoutAny) {
    ScriptedServices services;
    InstallMxSystemServices(nullptr);
    void* holder = LibraryHandle();
    OdRxModule* module = Create(&holder);
    module->initApp();
    Lines expected;
    for (const std::string& name : fourCommands) expected.push_back("AddCommand " + name);
    EXPECT_EQ(services.calls, expected);

    services.calls.clear();
    InstallElectricalServices(nullptr);
    module->uninitApp();
    EXPECT_EQ(services.calls, Lines{});

    InstallElectricalServices(&services);
    module->initApp();
    services.calls.clear();
    module->uninitApp();
    for (std::string& line : expected) line.replace(0, 3, "Remove");
    EXPECT_EQ(services.calls, expected);
    module->deleteModule();
}

// Thrown here, caught and thrown on by type in the library, caught by type here.
TEST(Library, ExceptionsOfTheProgramPassThroughIt) {
    struct Failing : ScriptedServices {
        CKVCommandManager* GetCommandManager() override {
            fail();
            return nullptr;
        }
        std::function<void()> fail;
    } services;
    void* holder = LibraryHandle();
    OdRxModule* module = Create(&holder);
    services.fail = [] { throw OdError_InvalidIndex(); };
    EXPECT_THROW(module->initApp(), OdError_InvalidIndex);
    services.fail = [] { throw std::out_of_range("no place"); };
    EXPECT_THROW(module->initApp(), std::out_of_range);
    EXPECT_EQ(services.log.size(), 2u);
    services.fail = [] {};
    module->uninitApp();
    module->deleteModule();
}

TEST_F(InHost, TheFourCommandsStandInTheTable) {
    host.Modules().Load(libraryPath);
    EXPECT_EQ(Commands(), fourCommands);
    for (const auto& command : host.Commands().Commands()) {
        EXPECT_EQ(command->IsUndoable(), command->GetName() != OdString(u"KVCFGTRADELANG"));
        EXPECT_EQ(command->GetRunTime(), 2);
    }
    host.Modules().UnloadAll();
    EXPECT_EQ(Commands(), Lines{});
}

// Thrown in the library, caught by type here; in the runner it becomes a line for the user.
TEST_F(InHost, ACommandInAProgramWithoutWindowsSaysSo) {
    host.Modules().Load(libraryPath);
    host.Documents().Open(drawingPath);
    for (const auto& command : host.Commands().Commands()) {
        const host::CommandOutcome outcome = host.Runner().Run(command->GetName());
        EXPECT_FALSE(outcome.done) << command->GetName().narrowText();
        EXPECT_NE(outcome.failure.find(u"a program without windows"), outcome.failure.npos)
            << QString::fromStdU16String(outcome.failure).toStdString();
    }
    // What failed leaves its scope of resources open.
    EXPECT_EQ(host.Documents().ResourceScopes(), std::vector<void*>(4, LibraryHandle()));
    EXPECT_TRUE(LogText().contains("JanelaTraducao : a program without windows"));
}

TEST_F(InHost, FollowsDocumentsAndCommandsUntilItIsUnloaded) {
    host.Documents().Open(drawingPath);
    host.Modules().Load(libraryPath);
    host::Document& later = host.Documents().Open(drawingPath);
    host.Commands().AddCommand(makeNotUndoableFunctionCommand(
        u"NOTHING", [](CMxCommandContext*) {}, CKVCommand::onRequest));
    EXPECT_TRUE(host.Runner().Run(u"NOTHING").done);
    EXPECT_TRUE(host.Runner().Run(u"NOTHING").done);
    host.Documents().Close(later);
    host.Modules().UnloadAll();
    // No reactor of the module is left behind: its object is gone.
    EXPECT_TRUE(host.Runner().Run(u"NOTHING").done);
    host.Documents().CloseAll();
    EXPECT_EQ(Commands(), Lines{"NOTHING"});
    host.Modules().Load(libraryPath);
    EXPECT_EQ(Commands().size(), 5u);
}
