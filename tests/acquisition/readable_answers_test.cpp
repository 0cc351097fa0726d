#include "acquisition/readable_answers.h"
#include "support/property_list_text.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

using Unreadable = std::vector<Question>;

TEST(UnreadableAnswers, AreThoseThatCannotBeParsed) {
  const std::string section = R"({"SPUSBDataType": []})";
  const std::string list = propertyList("<array/>");
  EXPECT_EQ(unreadableAnswers({{Question::usb, section}, {Question::portPower, list}}),
            Unreadable());
  EXPECT_EQ(unreadableAnswers({{Question::thunderbolt, section.substr(0, 10)},
                               {Question::usb, section},
                               {Question::power, "[]"},
                               {Question::portPower, list.substr(0, list.size() - 3)},
                               {Question::deviceTree, section},
                               {Question::newerUsb, list}}),
            (Unreadable{Question::thunderbolt, Question::power, Question::portPower,
                        Question::deviceTree, Question::newerUsb}));
}

} // namespace
} // namespace tamberline
