#include "setup/Archive.h"
#include "tests/support/Testing.h"
#include "tests/support/ZipMaker.h"

namespace setup {

class ArchiveTest : public testing::Test {
 protected:
  std::string Write(const std::vector<tests::ZipMember>& members) {
    return folder_.Write("a.zip", tests::MakeZip(members));
  }
  /// The bytes of a member; the error in their place when there is one.
  static std::string Unpacked(const std::string& path, std::string_view name) {
    std::string bytes;
    const std::string error = ErrorOf([&] {
      const Archive archive(path);
      const Member* const member = archive.Find(name);
      ASSERT_NE(member, nullptr);
      Unpacker().Unpack(archive, *member, [&bytes](std::string_view more) {
        bytes += more;
        EXPECT_LE(bytes.size(), 1'000'000U);
      });
    });
    return error == "no error" ? bytes : error;
  }

  const std::string long_ = std::string(700'000, 'x') + "ende";
  TemporaryFolder folder_;
};

TEST_F(ArchiveTest, NamesTheMemberThatIsNotAsTheDirectorySays) {
  const struct {
    tests::ZipMember member;
    std::string reason;
  } cases[] = {
      {{"a", "abc", false, 0, 0, {}, 7}, "Prüfsumme stimmt nicht"},
      {{"a", long_, true, 0, 0, 100}, "mehr Bytes als im Verzeichnis"},  // a bomb
      {{"a", "abc", true, 0, 0, 4}, "weniger Bytes als im Verzeichnis"},
      {{"a", "abc", false, 12}, "unbekanntes Packverfahren 12"},
      {{"a", "abc", false, 0, 1}, "verschlüsselt"},
      {{"a", "no deflate data", false, 8}, "gepackte Daten nicht lesbar"},
      {{"a", tests::Deflate("abc") + "x", false, 8, 0, 3}, "gepackte Daten nicht lesbar"},
      {{"a", tests::Deflate(long_).substr(0, 50), false, 8, 0, 700'004},
       "gepackte Daten enden zu früh"},
  };
  for (const auto& one : cases) {
    const std::string path = Write({one.member});
    EXPECT_EQ(Unpacked(path, "a"),
              "Das Archiv ist beschädigt: " + path + " (a: " + one.reason + ")");
  }
}

TEST_F(ArchiveTest, NamesAFileWhoseHeadersContradictEachOther) {
  EXPECT_THAT(Unpacked(Write({{"a", "x"}, {"b", "y"}, {"a", "z"}}), "a"),
              HasSubstr("zwei Einträge mit einem Namen"));
  std::string bytes = tests::MakeZip({{"a", "x"}});
  bytes[30] = 'b';  // the name before the data
  const std::string path = folder_.Write("a.zip", bytes);
  EXPECT_THAT(Unpacked(path, "a"), HasSubstr("Verzeichnis und Inhalt widersprechen sich"));
  EXPECT_THAT(Unpacked(folder_.Path("fehlt.zip"), "a"), HasSubstr("fehlt.zip"));
}

}  // namespace setup
