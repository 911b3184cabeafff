// The entry points, called as a host calls them.
#include <gtest/gtest.h>

#include "tests/ui/support/fakes.h"
#include "tests/ui/support/ui_host.h"

namespace rl::test {

namespace {

constexpr int kTemplateSize = 5257;  // bytes
constexpr const char* kShort = "MULTIMEDIA & (ext=\"CSV\" | ext=\"JSON\" | ext=\"XML\")";

/// The function as the module exports it.
template <typename Function>
Function Export(const UiHost& host, const char* name) {
    void* const address = reinterpret_cast<void*>(GetProcAddress(host.Module().Handle(), name));
    return reinterpret_cast<Function>(address);
}

/// Has the module forget nothing: it only learns its INI path from calls like this one.
void TellDefaults(const UiHost& host) {
    host.Module().SetDefaults(L"C:\\nowhere\\host.ini");
}

TEST(DetectString, NamesEveryExtensionBeforeAnySettingIsKnown) {
    const UiHost host({.ini = "detect-string=mine\n"});

    const std::string text = host.Module().DetectString();

    EXPECT_EQ(text.size(), 503u);
    EXPECT_TRUE(text.starts_with("MULTIMEDIA & (ext=\"CSV\" | ext=\"TSV\" | "));
    EXPECT_TRUE(text.ends_with(" | ext=\"RUNSETTINGS\")"));
}

TEST(DetectString, FitsABufferOfItsLengthAndAZero) {
    const UiHost host;

    EXPECT_EQ(host.Module().DetectString(504).size(), 503u);
    EXPECT_EQ(host.Module().DetectString(503), kShort);
}

TEST(DetectString, IsShortInASmallBufferWithAZeroInTheLastByte) {
    const UiHost host;
    std::vector<char> buffer(100, '?');

    Export<void(__stdcall*)(char*, int)>(host, "ListGetDetectString")(buffer.data(), 100);

    EXPECT_STREQ(buffer.data(), kShort);
    EXPECT_EQ(buffer[99], '\0');
}

TEST(DetectString, EndsInAZeroInTheLastByteOfALargeBufferToo) {
    const UiHost host;
    std::vector<char> buffer(1000, '?');

    Export<void(__stdcall*)(char*, int)>(host, "ListGetDetectString")(buffer.data(), 1000);

    EXPECT_EQ(buffer[999], '\0');
}

TEST(DetectString, LeavesABufferOfNoLengthAlone) {
    const UiHost host;
    char buffer = '?';

    Export<void(__stdcall*)(char*, int)>(host, "ListGetDetectString")(&buffer, 0);

    EXPECT_EQ(buffer, '?');
}

TEST(DetectString, ComesFromTheSettingsOnceTheyAreKnown) {
    const UiHost host({.ini = "detect-string=ext=\"LOG\"\n"});

    TellDefaults(host);

    EXPECT_EQ(host.Module().DetectString(), "ext=\"LOG\"");
}

TEST(DetectString, IsEmptyWhenTheSettingIsEmpty) {
    const UiHost host({.ini = "detect-string=\n"});

    TellDefaults(host);

    EXPECT_EQ(host.Module().DetectString(), "");
}

TEST(Defaults, MayBeAbsent) {
    const UiHost host({.ini = "detect-string=mine\n"});

    Export<void(__stdcall*)(void*)>(host, "ListSetDefaultParams")(nullptr);

    EXPECT_EQ(host.Module().DetectString(), "mine");
}

TEST(Defaults, WriteTheTemplateWhenThereAreNoSettings) {
    const UiHost host;
    std::filesystem::remove(host.IniFile());

    TellDefaults(host);

    EXPECT_EQ(tools::ReadBytes(host.IniFile()).size(), static_cast<size_t>(kTemplateSize));
}

TEST(Defaults, NeverOverwriteSettings) {
    const UiHost host({.ini = "font-size=20\n"});

    TellDefaults(host);

    EXPECT_EQ(tools::ReadBytes(host.IniFile()), "[rowlark]\nfont-size=20\n");
}

TEST(Defaults, NameAFileWhoseKeysCountAfterOurOwn) {
    UiHost host({.ini = "header-row=1\n"});
    const std::filesystem::path ini =
        host.Write(L"host.ini", "[rowlark]\nheader-row=0\nshow-line-numbers=1\n");
    host.Module().SetDefaults(ini.wstring());

    const Viewer viewer = host.OpenText("a,b\n1,2\n");

    EXPECT_EQ(viewer.Headers(), (Texts{L"#", L"a", L"b"}));
}

TEST(Defaults, KeepTheFirstFileNamed) {
    UiHost host;
    host.Module().SetDefaults(
        host.Write(L"first.ini", "[rowlark]\nshow-line-numbers=1\n").wstring());
    host.Module().SetDefaults(host.Write(L"second.ini", "[rowlark]\nheader-row=0\n").wstring());

    const Viewer viewer = host.OpenText("a,b\n1,2\n");

    EXPECT_EQ(viewer.Headers(), (Texts{L"#", L"a", L"b"}));
}

TEST(Settings, AreWrittenAsATemplateByTheFirstLoad) {
    UiHost host;
    std::filesystem::remove(host.IniFile());

    const Viewer viewer = host.OpenText("a,b\n1,2\n");

    const std::string text = tools::ReadBytes(host.IniFile());
    EXPECT_EQ(text.size(), static_cast<size_t>(kTemplateSize));
    EXPECT_EQ(text.find('\r'), std::string::npos);
    EXPECT_EQ(viewer.RowCount(), 1);
}

TEST(Settings, CountForTheNextFileWithoutLoadingTheModuleAnew) {
    UiHost host;
    EXPECT_EQ(host.OpenText("a,b\n1,2\n").RowCount(), 1);

    tools::WriteBytes(host.IniFile(), "[rowlark]\nheader-row=0\nfont-size=20\n");

    EXPECT_EQ(host.OpenText("a,b\n1,2\n").RowCount(), 2);
}

TEST(Settings, LieBesideTheModuleUnderItsNameUpToTheLastPoint) {
    UiHost host;
    const std::filesystem::path odd = host.IniFile().parent_path() / L"my.rowlark.v2.wlx64";
    ASSERT_TRUE(CopyFileW(host.ModuleFile().c_str(), odd.c_str(), FALSE));
    {
        const tools::PluginModule module(odd);
        ASSERT_TRUE(module.IsLoaded());
        module.SetDefaults(L"C:\\nowhere\\host.ini");
    }

    EXPECT_TRUE(std::filesystem::exists(odd.parent_path() / L"my.rowlark.v2.ini"));
}

}  // namespace

}  // namespace rl::test
