#include "host/store/settings_store.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "host/config/ini_template.h"
#include "host/store/module_path.h"
#include "load/files/file_handle.h"
#include "tests/support/temp_folder.h"

namespace rl {
namespace {

class SettingsStoreTest : public testing::Test {
protected:
    /// Writes the plugin's file and tells the store where it lies.
    void UsePlugin(std::string_view text) {
        store.SetPluginIniPath(folder.Write(L"rowlark.ini", text));
    }
    void UseHost(std::string_view text) { store.SetHostIniPath(folder.Write(L"host.ini", text)); }
    std::wstring Get(std::wstring_view key) { return store.GetString(key, L"(default)"); }

    test::TempFolder folder;
    SettingsStore store;
};

/// Gives a file another time without touching its bytes, or an old time to new bytes.
void SetWriteTime(const std::wstring& path, uint64_t time) {
    const UniqueFile file(CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, 7, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    const FILETIME value{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
    EXPECT_TRUE(SetFileTime(file.Get(), nullptr, nullptr, &value));
}

TEST_F(SettingsStoreTest, AnswersWithTheFallbackWithoutAnyFile) {
    EXPECT_EQ(Get(L"font"), L"(default)");
    EXPECT_EQ(store.GetInt(L"font-size", 16), 16);
}

TEST_F(SettingsStoreTest, AnswersWithTheFallbackWhenFilesAreMissing) {
    store.SetPluginIniPath(folder.PathOf(L"none.ini"));
    store.SetHostIniPath(folder.PathOf(L"none either.ini"));

    EXPECT_EQ(Get(L"font"), L"(default)");
}

TEST_F(SettingsStoreTest, FindsAKeyInAnyLetterCase) {
    UsePlugin("[ROWLARK]\r\nFont=Arial\r\n");

    EXPECT_EQ(Get(L"font"), L"Arial");
    EXPECT_EQ(Get(L"FONT"), L"Arial");
}

TEST_F(SettingsStoreTest, PrefersThePluginsFile) {
    UsePlugin("[rowlark]\na=plugin\n");
    UseHost("[rowlark]\na=host\nb=host\n");

    EXPECT_EQ(Get(L"a"), L"plugin");
    EXPECT_EQ(Get(L"b"), L"host");
}

TEST_F(SettingsStoreTest, PrefersOurSectionOverThePluginsFile) {
    UsePlugin("[brenlo]\na=plugin\n");
    UseHost("[rowlark]\na=host\n");

    EXPECT_EQ(Get(L"a"), L"host");
}

TEST_F(SettingsStoreTest, KeepsTheFirstHostPath) {
    UseHost("[rowlark]\na=first\n");
    store.SetHostIniPath(folder.Write(L"second.ini", "[rowlark]\na=second\n"));

    EXPECT_EQ(Get(L"a"), L"first");
}

TEST_F(SettingsStoreTest, TakesAHostPathAfterAnEmptyOne) {
    store.SetHostIniPath(L"");
    UseHost("[rowlark]\na=1\n");

    EXPECT_EQ(Get(L"a"), L"1");
}

TEST_F(SettingsStoreTest, FollowsAnotherPluginPath) {
    UsePlugin("[rowlark]\na=1\n");
    ASSERT_EQ(Get(L"a"), L"1");
    store.SetPluginIniPath(folder.Write(L"other.ini", "[rowlark]\na=2\n"));

    EXPECT_EQ(Get(L"a"), L"2");
}

TEST_F(SettingsStoreTest, GivesAnEmptyValueInsteadOfTheFallback) {
    UsePlugin("[rowlark]\nfilter-hint=\nfont-size=\n");

    EXPECT_EQ(Get(L"filter-hint"), L"");
    EXPECT_EQ(store.GetInt(L"font-size", 16), 16);
}

TEST_F(SettingsStoreTest, ReadsNumbersByOurRules) {
    UsePlugin("[rowlark]\na=20 ; big\nb=abc\nc=16px\nd=0x10\ne=99999999999\nf=\" 7 \"\ng=-3\n");

    EXPECT_EQ(store.GetInt(L"a", 16), 20);
    EXPECT_EQ(store.GetInt(L"b", 16), 16);
    EXPECT_EQ(store.GetInt(L"c", 16), 16);
    EXPECT_EQ(store.GetInt(L"d", 16), 16);
    EXPECT_EQ(store.GetInt(L"e", 16), 2147483647);
    EXPECT_EQ(store.GetInt(L"f", 16), 7);
    EXPECT_EQ(store.GetInt(L"g", 16), -3);
}

TEST_F(SettingsStoreTest, ReadsFilesInEveryEncoding) {
    UsePlugin("\xEF\xBB\xBF[rowlark]\na=\xD0\x96\n");
    EXPECT_EQ(Get(L"a"), L"\x0416");

    UsePlugin("[rowlark]\na=no mark: \xD0\x96\n");
    EXPECT_EQ(Get(L"a"), L"no mark: \x0416");

    UsePlugin("[rowlark]\na=ansi: \xE9\n");
    EXPECT_EQ(Get(L"a"), L"ansi: \x00E9");

    UsePlugin(std::string("\xFF\xFE[\0r\0o\0w\0l\0a\0r\0k\0]\0\n\0a\0=\0\x16\x04", 28));
    EXPECT_EQ(Get(L"a"), L"\x0416");
}

TEST_F(SettingsStoreTest, SeesAnEditAtTheNextLookUp) {
    UsePlugin("[rowlark]\na=1\n");
    ASSERT_EQ(Get(L"a"), L"1");
    folder.Write(L"rowlark.ini", "[rowlark]\na=other\n");

    EXPECT_EQ(Get(L"a"), L"other");
}

TEST_F(SettingsStoreTest, SeesAnEditOfTheHostsFile) {
    UseHost("[rowlark]\na=1\n");
    ASSERT_EQ(Get(L"a"), L"1");
    folder.Write(L"host.ini", "[rowlark]\na=other\n");

    EXPECT_EQ(Get(L"a"), L"other");
}

TEST_F(SettingsStoreTest, SeesAnEditOfTheSameSizeByItsTime) {
    UsePlugin("[rowlark]\na=1\n");
    ASSERT_EQ(Get(L"a"), L"1");
    SetWriteTime(folder.Write(L"rowlark.ini", "[rowlark]\na=2\n"), 132'000'000'000'000'000);

    EXPECT_EQ(Get(L"a"), L"2");
}

TEST_F(SettingsStoreTest, SeesAnEditWithinOneTickByItsSize) {
    UsePlugin("[rowlark]\na=1\n");
    SetWriteTime(folder.PathOf(L"rowlark.ini"), 132'000'000'000'000'000);
    ASSERT_EQ(Get(L"a"), L"1");
    folder.Write(L"rowlark.ini", "[rowlark]\na=22\n");
    SetWriteTime(folder.PathOf(L"rowlark.ini"), 132'000'000'000'000'000);

    EXPECT_EQ(Get(L"a"), L"22");
}

TEST_F(SettingsStoreTest, ReadsAnUnchangedFileOnce) {
    UsePlugin("[rowlark]\na=1\n");
    SetWriteTime(folder.PathOf(L"rowlark.ini"), 132'000'000'000'000'000);
    ASSERT_EQ(Get(L"a"), L"1");
    folder.Write(L"rowlark.ini", "[rowlark]\na=2\n");
    SetWriteTime(folder.PathOf(L"rowlark.ini"), 132'000'000'000'000'000);

    EXPECT_EQ(Get(L"a"), L"1") << "same time and same size: the same file";
}

TEST_F(SettingsStoreTest, ForgetsTheKeysOfADeletedFile) {
    UsePlugin("[rowlark]\na=1\n");
    ASSERT_EQ(Get(L"a"), L"1");
    folder.Remove(L"rowlark.ini");

    EXPECT_EQ(Get(L"a"), L"(default)");
}

TEST_F(SettingsStoreTest, FindsTheKeysOfAFileThatAppears) {
    store.SetPluginIniPath(folder.PathOf(L"rowlark.ini"));
    ASSERT_EQ(Get(L"a"), L"(default)");
    folder.Write(L"rowlark.ini", "[rowlark]\na=1\n");

    EXPECT_EQ(Get(L"a"), L"1");
}

TEST_F(SettingsStoreTest, WritesToThePluginsFile) {
    UsePlugin("[rowlark]\na=1\n");
    UseHost("[rowlark]\na=host\n");
    store.SetString(L"a", L"2");
    store.SetInt(L"font-size", -20);

    EXPECT_EQ(Get(L"a"), L"2");
    EXPECT_EQ(Get(L"font-size"), L"-20");
    EXPECT_NE(folder.Read(L"rowlark.ini").find("a=2"), std::string::npos);
    EXPECT_EQ(folder.Read(L"host.ini"), "[rowlark]\na=host\n");
}

TEST_F(SettingsStoreTest, MakesThePluginsFileByWriting) {
    store.SetPluginIniPath(folder.PathOf(L"rowlark.ini"));
    store.SetString(L"font", L"Arial Black");

    EXPECT_EQ(Get(L"font"), L"Arial Black");
    EXPECT_NE(folder.Read(L"rowlark.ini").find("[rowlark]"), std::string::npos);
}

TEST_F(SettingsStoreTest, KeepsTheOtherKeysOfAFileItWritesTo) {
    UsePlugin("[rowlark]\nfont=Arial\n[other]\nx=1\n");
    store.SetInt(L"font-size", 20);

    EXPECT_EQ(Get(L"font"), L"Arial");
    EXPECT_NE(folder.Read(L"rowlark.ini").find("x=1"), std::string::npos);
}

TEST_F(SettingsStoreTest, WritesToTheHostsFileWithoutAPluginPath) {
    store.SetHostIniPath(folder.PathOf(L"host.ini"));
    store.SetString(L"a", L"1");

    EXPECT_EQ(Get(L"a"), L"1");
    EXPECT_NE(folder.Read(L"host.ini").find("a=1"), std::string::npos);
}

TEST_F(SettingsStoreTest, WritesInMemoryWithoutAnyPath) {
    store.SetString(L"A", L"1");
    EXPECT_EQ(Get(L"a"), L"1");

    store.SetString(L"a", L"2");
    EXPECT_EQ(Get(L"A"), L"2");
}

TEST_F(SettingsStoreTest, TouchesNoFileWhileInMemoryOnly) {
    store.SetPluginIniPath(folder.PathOf(L"rowlark.ini"));
    store.SetMemoryOnly(true);
    store.SetString(L"a", L"1");
    store.WriteTemplateIfMissing();

    EXPECT_EQ(Get(L"a"), L"1");
    EXPECT_EQ(GetFileAttributesW(folder.PathOf(L"rowlark.ini").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(SettingsStoreTest, ReadsNoFileWhileInMemoryOnly) {
    UsePlugin("[rowlark]\na=1\n");
    store.SetMemoryOnly(true);

    EXPECT_EQ(Get(L"a"), L"(default)");
}

TEST_F(SettingsStoreTest, WritesTheTemplateWhereNoFileIs) {
    store.SetPluginIniPath(folder.PathOf(L"rowlark.ini"));
    store.WriteTemplateIfMissing();

    EXPECT_EQ(folder.Read(L"rowlark.ini"), IniTemplate());
    EXPECT_EQ(Get(L"font"), L"(default)");
}

TEST_F(SettingsStoreTest, NeverOverwritesAFile) {
    UsePlugin("");
    store.WriteTemplateIfMissing();

    EXPECT_EQ(folder.Read(L"rowlark.ini"), "");
}

TEST_F(SettingsStoreTest, WritesTheTemplateAgainAfterADeletion) {
    store.SetPluginIniPath(folder.PathOf(L"rowlark.ini"));
    store.WriteTemplateIfMissing();
    folder.Remove(L"rowlark.ini");
    store.WriteTemplateIfMissing();

    EXPECT_EQ(folder.Read(L"rowlark.ini").size(), 5257u);
}

TEST_F(SettingsStoreTest, DoesNotMindATemplateThatCannotBeWritten) {
    store.WriteTemplateIfMissing();
    store.SetPluginIniPath(folder.PathOf(L"no such folder\\rowlark.ini"));
    store.WriteTemplateIfMissing();

    EXPECT_EQ(Get(L"font"), L"(default)");
}

TEST_F(SettingsStoreTest, SetsAKeyInTheTemplate) {
    store.SetPluginIniPath(folder.PathOf(L"rowlark.ini"));
    store.WriteTemplateIfMissing();
    store.SetInt(L"font-size", 20);

    EXPECT_EQ(store.GetInt(L"font-size", 16), 20);
    EXPECT_EQ(Get(L"font"), L"(default)") << "the comments stay comments";
}

TEST(SettingsStore, IsOneForTheProcess) {
    EXPECT_EQ(&SettingsStore::Instance(), &SettingsStore::Instance());
}

TEST(PluginIniPath, ReplacesWhatFollowsTheLastDot) {
    EXPECT_EQ(PluginIniPath(L"C:\\x\\rowlark.wlx64"), L"C:\\x\\rowlark.ini");
    EXPECT_EQ(PluginIniPath(L"C:\\a.b\\row.lark.wlx64"), L"C:\\a.b\\row.lark.ini");
    EXPECT_EQ(PluginIniPath(L"rowlark"), L"rowlark.ini");
    EXPECT_EQ(PluginIniPath(L""), L".ini");
}

TEST(PluginIniPath, DoesNotStopAtAFolder) {
    EXPECT_EQ(PluginIniPath(L"C:\\a.b\\rowlark"), L"C:\\a.ini") << "a module always has a suffix";
}

TEST(ModulePath, IsThatOfTheCodeThatAsks) {
    wchar_t executable[1024] = {};
    GetModuleFileNameW(nullptr, executable, 1024);

    EXPECT_EQ(ModulePath(), executable) << "here the code is linked into the test program";
}

}  // namespace
}  // namespace rl
