#include "lists/MarkupElements.h"

#include <gtest/gtest.h>

#include <string>

#include "lists/XmlDocument.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

/// The elements within the last one, each with those within it, as in "a(b c)".
std::string Within(MarkupElements& elements, const std::vector<StringView>& names) {
  std::string tree;
  elements.ForEachChild([&] {
    if (!tree.empty()) tree += ' ';
    for (const StringView name : names) {
      if (elements.Is(name)) tree += Utf8(name);
    }
    const std::string within = Within(elements, names);
    if (!within.empty()) tree += "(" + within + ")";
  });
  return tree;
}

std::string Tree(StringView text) {
  MarkupElements elements(text);
  return elements.Find(u"r") ? Within(elements, {u"a", u"b", u"c"}) : "none";
}

std::string TextOfFirst(StringView text) {
  MarkupElements elements(text);
  return elements.Find(u"a") ? Utf8(elements.Text()) : "none";
}

TEST(MarkupElements, ChildrenComeInTheirOrderAndWithTheirOwn) {
  EXPECT_EQ(Tree(u"<r><a><b/><c>x</c></a><b></b><c/></r><a/>"), "a(b c) b c");
  EXPECT_EQ(Tree(u"<x><r/><a/></x>"), "");
  EXPECT_EQ(Tree(u"<R><A><n:B/></A></R>"), "a(b)");
  EXPECT_EQ(Tree(u"<a/>"), "none");
}

TEST(MarkupElements, WhatIsNotClosedEndsWithTheElementAroundIt) {
  EXPECT_EQ(Tree(u"<r><a><b><c></a><b/></r>"), "a(b(c)) b");
  EXPECT_EQ(Tree(u"<r><a><b>"), "a(b)");
  EXPECT_EQ(Tree(u"<r><a></r><b/>"), "a");
}

TEST(MarkupElements, AnEndWithoutAStartIsPassedOver) {
  EXPECT_EQ(Tree(u"<r></c><a></b></a></c><b/></r>"), "a b");
}

TEST(MarkupElements, ChildrenThatAreNotAskedForArePassedOver) {
  MarkupElements elements(u"<r><a><b>1</b><c/></a><b>2</b></r>");
  ASSERT_TRUE(elements.Find(u"r"));
  std::string texts;
  elements.ForEachChild([&] {
    if (elements.Is(u"b")) texts += Utf8(elements.Text());
  });
  EXPECT_EQ(texts, "2");
}

TEST(MarkupElements, ATextIsTheOneThatATreeTells) {
  for (const StringView text : {u"<a>x</a>", u"<a>\r\n x\r\n y </a>", u"<a>&lt;&#38;&nbsp;&</a>",
                                u"<a><![CDATA[x & y]]></a>", u"<a>x<!--y-->z</a>",
                                u"<a>x<b>y</b></a>", u"<a/>", u"<a></a>", u"<a>x"}) {
    const XmlDocument document(text);
    EXPECT_EQ(TextOfFirst(text), Utf8(TextOf(document.Root().first_child()))) << Utf8(text);
  }
}

TEST(MarkupElements, ATextMayBeAskedForTwice) {
  MarkupElements elements(u"<a>x</a>");
  ASSERT_TRUE(elements.Find(u"a"));
  EXPECT_EQ(Utf8(elements.Text()), "x");
  EXPECT_EQ(Utf8(elements.Text()), "x");
}

TEST(MarkupElements, WhatIsDeeperThanAnybodyWritesIsPassedOver) {
  String deep = u"<r><a>";
  for (int i = 0; i < 1000; ++i) deep += u"<c>";
  for (int i = 0; i < 1000; ++i) deep += u"</c>";
  MarkupElements elements(StringView(deep += u"</a><b/></r>"));
  ASSERT_TRUE(elements.Find(u"r"));
  std::string children;
  elements.ForEachChild([&] { children += elements.Is(u"a") ? "a" : "b"; });
  EXPECT_EQ(children, "ab");
}

}  // namespace
}  // namespace norvo
