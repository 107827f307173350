#include "lists/ListKinds.h"

#include <algorithm>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

struct KindRow {
  StringView path;
  std::optional<ListSyntax> syntax;
};

TEST(ListKinds, TheNameTellsTheKind) {
  for (const KindRow& row : {KindRow{u"Mix.m3u", ListSyntax::M3u},
                             {u"C:\\Music\\MIX.M3U8", ListSyntax::M3u},
                             {u"Mix.pls", ListSyntax::Pls},
                             {u"Mix.asx", ListSyntax::Asx},
                             {u"Mix.wax", ListSyntax::Asx},
                             {u"Mix.Wvx", ListSyntax::Asx},
                             {u"a.b.wpl", ListSyntax::Wpl},
                             {u"Mix.zpl", ListSyntax::Wpl},
                             {u"Mix.xspf", ListSyntax::Xspf},
                             {u"Mix.b4s", ListSyntax::B4s},
                             {u"C:\\iTunes\\iTunes Library.xml", ListSyntax::ITunes},
                             {u"ITUNES MUSIC LIBRARY.XML", ListSyntax::ITunes},
                             {u"Mix.kpl", std::nullopt},
                             {u"Mix.fpl", std::nullopt},
                             {u"Mix.mpcpl", std::nullopt},
                             {u"Mix.pla", std::nullopt}}) {
    const ListKind* const kind = KindOf(row.path);
    ASSERT_NE(kind, nullptr) << Utf8(row.path);
    EXPECT_EQ(kind->syntax, row.syntax) << Utf8(row.path);
    EXPECT_STRNE(kind->name, "");
  }
}

TEST(ListKinds, OtherNamesAreThoseOfNoList) {
  for (const StringView path :
       {u"", u"m3u", u"Mix", u"Mix.", u"Mix.m3u9", u"Mix.m3u.bak", u"C:\\a.m3u\\Mix", u"asx.txt",
        u"Mix.xml", u"Library.xml", u"My iTunes Library.xml", u"iTunes Library.xml\\a.mp3"}) {
    EXPECT_EQ(KindOf(path), nullptr) << Utf8(path);
  }
}

TEST(ListKinds, EveryKindHasItsEnding) {
  const std::vector<StringView> endings = ListEndings();
  EXPECT_EQ(endings.size(), 16u);
  for (const StringView ending : endings) {
    const String path = ending.starts_with(u'.') ? u"a" + String(ending) : String(ending);
    ASSERT_NE(KindOf(path), nullptr) << Utf8(path);
    EXPECT_TEXT(KindOf(path)->extension, ending);
  }
}

TEST(ListKinds, ASyntaxHasTheExtensionThatItsFilesUsuallyHave) {
  EXPECT_TEXT(ExtensionOf(ListSyntax::Asx), u".asx");
  EXPECT_TEXT(ExtensionOf(ListSyntax::M3u), u".m3u");
  EXPECT_TEXT(ExtensionOf(ListSyntax::Pls), u".pls");
  EXPECT_TEXT(ExtensionOf(ListSyntax::Wpl), u".wpl");
  EXPECT_TEXT(ExtensionOf(ListSyntax::Xspf), u".xspf");
  EXPECT_TEXT(ExtensionOf(ListSyntax::B4s), u".b4s");
}

}  // namespace
}  // namespace norvo
