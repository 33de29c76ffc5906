#include "Orvane/WebAddress.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

TEST(WebAddress, KnowsWhatIsAURL) {
  for (const char* url : {"https://example.org", "http://example.org:80/a/b?c=d&e=(f)#g",
                          "mailto:a@example.org?x=%20", "x-app.1+2:anything", "https://[::1]/"})
    EXPECT_TRUE(WebAddress::isURL(url)) << url;
  for (const char* text :
       {"", "example.org", "https:", "https://", "https:///path", ":x", "1a:b",
        "https://example.org/a b", "https://example.org/\n", "https://\xc3\xa4.org",
        "https://example.org/%2", "https://example.org/%zz", "a:\"b\"", "a:<b>"})
    EXPECT_FALSE(WebAddress::isURL(text)) << text;
}

TEST(WebAddress, EscapesWhatAQueryCannotHold) {
  EXPECT_EQ(WebAddress::escaped("Foam & Co 1.4-2_~"), "Foam%20%26%20Co%201.4-2_~");
  EXPECT_EQ(WebAddress::escaped("\xc3\xa4?"), "%C3%A4%3F");
}

TEST(WebAddress, IsShownAsPeopleWriteIt) {
  EXPECT_EQ(WebAddress::shown("https://www.example.org/"), "www.example.org");
  EXPECT_EQ(WebAddress::shown("https://example.org/a/b"), "example.org/a/b");
  EXPECT_EQ(WebAddress::shown(""), "");
}

}  // namespace
}  // namespace orvane
