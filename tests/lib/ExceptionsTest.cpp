#include "lib/Exceptions.h"

#include "TestSupport.h"
#include "lib/PellLib.h"

#include <gtest/gtest.h>

namespace {

class ExceptionsTest : public testing::Test {
protected:
    pell::test::ScopedEnglish english;
};

TEST_F(ExceptionsTest, AReportIsOneErrorBoxWithTheSource) {
    const auto platform = [](unsigned long code) {
        return ulm_std::CWinException(120, "/src/lib/Somewhere.cpp", QStringLiteral("Reading"),
                                      code);
    };
    const ulm_std::CWinException timedOut = platform(1460);
    const ulm_std::CWinException unknown = platform(4242);
    const ulm_std::CCommException withReply(
        QStringLiteral("set,/par/ant/rcv/h,x"), QStringLiteral("Receiver"),
        QStringLiteral("{3,,wrong value}"), QStringLiteral("mate"));
    const ulm_std::CCommException withoutReply(QStringLiteral("print,/par/x"),
                                               QStringLiteral("Receiver"), QString(),
                                               QStringLiteral("mate"));
    const std::pair<const ulm_std::CException*, const char*> cases[] = {
        {&timedOut, "Reading failed: The operation timed out. (error 1460).\n\n"
                    "Source: Somewhere.cpp, line 120"},
        {&unknown, "Reading failed: Unknown system error. (error 4242).\n\n"
                   "Source: Somewhere.cpp, line 120"},
        {&withReply, "The command \"set,/par/ant/rcv/h,x\" failed.\n"
                     "Receiver replied: {3,,wrong value}\n\nSource: mate"},
        {&withoutReply, "The command \"print,/par/x\" failed.\n\nSource: mate"},
    };
    for (const auto& [error, text] : cases) {
        pell::test::ScopedPresenter boxes(pell::IDOK);
        EXPECT_EQ(error->ReportError(nullptr), pell::IDOK);
        ASSERT_EQ(boxes.Boxes().size(), 1u);
        EXPECT_EQ(boxes.Boxes()[0].text, QString::fromUtf8(text));
        EXPECT_EQ(boxes.Boxes()[0].caption, QStringLiteral("Dorrit"));
        EXPECT_EQ(boxes.Boxes()[0].style, pell::MB_OK | pell::MB_ICONERROR);
    }
    EXPECT_STREQ(withoutReply.what(), "The command \"print,/par/x\" failed.");
}

TEST_F(ExceptionsTest, MessageBoxCarriesTheShortNameAndReturnsTheAnswer) {
    pell::test::ScopedPresenter boxes(pell::IDNO);
    EXPECT_EQ(g_PellLibApp.MessageBox(nullptr, QStringLiteral("Go on?"),
                                      pell::MB_YESNO | pell::MB_ICONQUESTION),
              unsigned(pell::IDNO));
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_EQ(boxes.Boxes()[0].caption, QStringLiteral("Dorrit"));
    EXPECT_EQ(boxes.Boxes()[0].style, pell::MB_YESNO | pell::MB_ICONQUESTION);
}

} // namespace
