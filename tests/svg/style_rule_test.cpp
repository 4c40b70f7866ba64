#include "svg/style_rule.h"

#include <gmock/gmock.h>
#include <string>

#include "svg/element.h"

using Svg::AttributeStore;
using Svg::RuleQueue;
using Svg::StyleRule;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The rules of a sheet, each as "tag.class{key:value;...}" with the keys in order.
class Sheet {
 public:
  explicit Sheet(std::string_view text) : queue(store) { Add(text); }

  void Add(std::string_view text) { Svg::SVG_Element().ParseStyleSheet(text, queue); }

  std::vector<std::string> Rules() const {
    std::vector<std::string> rules;
    for (const StyleRule& rule : queue.Rules()) {
      std::map<std::string, std::string> properties;
      for (const auto& [key, entry] : rule.properties)
        properties[std::string(store.NameOf(key))] = entry.Value();
      std::string text = std::string(rule.selectorTag) + "." + std::string(rule.selectorClass) + "{";
      for (const auto& [key, value] : properties) text += key + ":" + value + ";";
      rules.push_back(text + "}");
    }
    return rules;
  }

  std::vector<std::string> Matches(std::string_view elementName, bool hasClass,
                                   std::string_view classText) const {
    std::vector<const StyleRule*> found;
    queue.Collect(elementName, hasClass, classText, found);
    std::vector<std::string> classes;
    for (const StyleRule* const rule : found) {
      classes.push_back(std::string(rule->selectorTag) + "." + std::string(rule->selectorClass));
    }
    return classes;
  }

  AttributeStore store;
  RuleQueue queue;
};

std::vector<std::string> RulesOf(std::string_view text) { return Sheet(text).Rules(); }

}  // namespace

TEST(StyleSheet, ReadsClassesAndTagsWithClasses) {
  EXPECT_THAT(RulesOf(".a{fill:red}rect.b{stroke:blue}"),
              ElementsAre(".a{fill:red;}", "rect.b{stroke:blue;}"));
}

TEST(StyleSheet, TakesASelectorWithoutADotForAClass) {
  EXPECT_THAT(RulesOf("rect{fill:red}"), ElementsAre(".rect{fill:red;}"));
}

TEST(StyleSheet, RemovesWhiteSpaceWhereverItStands) {
  EXPECT_THAT(RulesOf(" .a \n{ fill : red ;\r\n\tstroke : b l u e }\n"),
              ElementsAre(".a{fill:red;stroke:blue;}"));
  EXPECT_THAT(RulesOf(".a .b{fill:red}"), ElementsAre("a.b{fill:red;}"));
  // Form feeds and vertical tabs are none of it.
  EXPECT_THAT(RulesOf(".a{x:\fy\v}"), ElementsAre(".a{x:\fy\v;}"));
}

TEST(StyleSheet, LeavesOtherSelectorsAsTheyStand) {
  EXPECT_THAT(RulesOf("#x{fill:red}.a,.b{fill:red}"), ElementsAre(".#x{fill:red;}", "a,.b{fill:red;}"));
  EXPECT_THAT(RulesOf("a.b.c{fill:red}"), ElementsAre(".{fill:red;}"));
}

TEST(StyleSheet, TakesACommentForPartOfTheSelector) {
  EXPECT_THAT(RulesOf("/*x*/.a{fill:red}"), ElementsAre("/*x*/.a{fill:red;}"));
}

TEST(StyleSheet, TakesTheSecondPartOfNestedBracesForTheBody) {
  EXPECT_THAT(RulesOf("@media print{.a{fill:red}}"), ElementsAre(".@mediaprint{.a:.a;}"));
}

TEST(StyleSheet, DividesDeclarationsAtTheFirstColon) {
  EXPECT_THAT(RulesOf(".a{;;x:url(a:b);:c;d}"), ElementsAre(".a{d:d;x:url(a:b);}"));
}

TEST(StyleSheet, LetsTheLastDeclarationOfAKeyHold) {
  EXPECT_THAT(RulesOf(".a{fill:red;fill:blue}"), ElementsAre(".a{fill:blue;}"));
}

TEST(StyleSheet, WritesIntoARuleOfTheSameSelector) {
  EXPECT_THAT(RulesOf(".a{fill:red}.b{x:y}.a{stroke:blue;fill:green}"),
              ElementsAre(".a{fill:green;stroke:blue;}", ".b{x:y;}"));
  EXPECT_THAT(RulesOf(".a{fill:red}g.a{fill:blue}"), ElementsAre(".a{fill:red;}", "g.a{fill:blue;}"));
}

TEST(StyleSheet, AddsToTheRulesOfEarlierSheets) {
  Sheet sheet(".a{fill:red}");
  sheet.Add(".b{x:y}.a{stroke:blue}");
  EXPECT_THAT(sheet.Rules(), ElementsAre(".a{fill:red;stroke:blue;}", ".b{x:y;}"));
}

TEST(StyleSheet, IgnoresTextWithoutBraces) {
  EXPECT_THAT(RulesOf("nothing}.a{fill:red}more"), ElementsAre(".a{fill:red;}"));
  EXPECT_THAT(RulesOf(""), IsEmpty());
}

TEST(StyleSheet, ReadsALastRuleWithoutItsBrace) {
  EXPECT_THAT(RulesOf(".a{fill:red"), ElementsAre(".a{fill:red;}"));
}

TEST(StyleSheet, EndsAtARuleWithoutSelector) {
  EXPECT_THAT(RulesOf(".a{fill:red}{fill:blue}.b{x:y}"), ElementsAre(".a{fill:red;}"));
  EXPECT_THAT(RulesOf(".a{fill:red}{}.b{x:y}"), ElementsAre(".a{fill:red;}"));
}

TEST(StyleSheet, EndsAtARuleWithoutBody) {
  EXPECT_THAT(RulesOf(".a{fill:red}.c{}.b{x:y}"), ElementsAre(".a{fill:red;}"));
  EXPECT_THAT(RulesOf(".a{ }.b{x:y}"), IsEmpty());
}

TEST(StyleSheet, ReadsTheNextSheetAfterOneThatBrokeOff) {
  Sheet sheet(".a{}");
  sheet.Add(".b{x:y}");
  EXPECT_THAT(sheet.Rules(), ElementsAre(".b{x:y;}"));
}

TEST(RuleQueue, FindsTheRulesOfEachClassInTheirOrder) {
  const Sheet sheet(".b{x:1}.a{x:1}rect.a{x:1}g.a{x:1}");
  EXPECT_THAT(sheet.Matches("rect", true, "a b"), ElementsAre(".b", ".a", "rect.a"));
  EXPECT_THAT(sheet.Matches("rect", true, "a  a"), ElementsAre(".a", "rect.a"));
  EXPECT_THAT(sheet.Matches("rect", true, ""), IsEmpty());
}

TEST(RuleQueue, FindsByTheTagAloneOnlyWithoutAClass) {
  const Sheet sheet("rect.a{x:1}.rect{x:1}rect.b{x:1}");
  EXPECT_THAT(sheet.Matches("rect", false, ""), ElementsAre("rect.a", "rect.b"));
  EXPECT_THAT(sheet.Matches("rect", true, "c"), IsEmpty());
  EXPECT_THAT(sheet.Matches("g", false, ""), IsEmpty());
}
