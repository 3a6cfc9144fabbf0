#include <orrelo/Url.h>

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace orrelo::test {
namespace {

/// All parts of the URL in one line; "-" for an absent query or fragment.
std::string parts(const Url& url) {
  const auto text = [](auto part) { return part ? std::string(*part) : std::string("-"); };
  std::string line;
  for (const auto part : {url.scheme(), url.host(), url.port(), url.path()}) line.append(part).append("|");
  return line + text(url.query()) + "|" + text(url.fragment());
}

TEST(UrlTest, TellsThePartsOfWhatTheGrammarAllows) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"https://api.example/a/b?x=1&y#top", "https|api.example||/a/b|x=1&y|top"},
      {"HTTPS://Api.Example:8443", "HTTPS|Api.Example|8443||-|-"},
      {"https://host?q=/?:@#/?:@", "https|host|||q=/?:@|/?:@"},
      {"https://host/?#", "https|host||/||"},
      {"https://[2001:db8::1]:443/", "https|[2001:db8::1]|443|/|-|-"},
      {"https://127.0.0.1/%ED%8F%AC", "https|127.0.0.1||/%ED%8F%AC|-|-"},
      {"shop-app+1.x:item/3", "shop-app+1.x|||item/3|-|-"},
      {"file:///etc/hosts", "file|||/etc/hosts|-|-"},
      {"relative;v=1,2/a:b", "|||relative;v=1,2/a:b|-|-"},
      {"//host/p", "|host||/p|-|-"},
      {"?a:b", "||||a:b|-"},
      {"a:", "a||||-|-"},
  };
  for (const auto& [text, expected] : cases) {
    const auto url = Url::parse(text);
    ASSERT_TRUE(url) << text;
    EXPECT_EQ(parts(*url), expected) << text;
    EXPECT_EQ(url->text(), text);
  }
}

TEST(UrlTest, RefusesWhatTheGrammarDoesNotAllow) {
  EXPECT_FALSE(Url::parse(std::string("https://host/\0", 14)));
  for (const std::string text : {"",
                                 "https://host/a b",
                                 " https://host",
                                 "https://host\n",
                                 "https://host/%4",
                                 "https://host/%4G",
                                 "https://host/포인트",
                                 "https://호스트/",
                                 "https://host/[1]",
                                 "https://host/#a#b",
                                 "https://host/a|b",
                                 "https://host/\\",
                                 "https://host:80a/",
                                 "https://a@b@c/",
                                 "https://2001:db8::1/",
                                 "https://[2001:db8::1",
                                 "https://[1::2::3]/",
                                 "https://[]/",
                                 "1http://host",
                                 ":a",
                                 "a_b:c",
                                 "%41:b"}) {
    EXPECT_FALSE(Url::parse(text)) << '"' << text << '"';
  }
}

}  // namespace
}  // namespace orrelo::test
