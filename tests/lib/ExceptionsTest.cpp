#include "lib/Exceptions.h"

#include "TestSupport.h"
#include "lib/PellLib.h"

#include <gtest/gtest.h>

namespace {

class ExceptionsTest : public testing::Test {
protected:
    pell::test::ScopedEnglish english;
};

TEST_F(ExceptionsTest, PlatformErrorReportsOperationCodeAndSource) {
    struct Case {
        unsigned long code;
        const char* text;
    };
    const Case cases[] = {
        {55, "The device is not present."},
        {1460, "The operation timed out."},
        {4242, "Unknown system error."},
    };
    for (const Case& c : cases) {
        pell::test::ScopedPresenter boxes(pell::IDOK);
        const ulm_std::CWinException e(120, "/src/lib/Somewhere.cpp", QStringLiteral("Reading"),
                                       c.code);
        EXPECT_EQ(e.ReportError(nullptr), pell::IDOK);
        ASSERT_EQ(boxes.Boxes().size(), 1u);
        const auto& box = boxes.Boxes()[0];
        EXPECT_EQ(box.caption, QStringLiteral("Dorrit"));
        EXPECT_EQ(box.style, pell::MB_OK | pell::MB_ICONERROR);
        EXPECT_EQ(box.text,
                  QStringLiteral("Reading failed: %1 (error %2).\n\nSource: Somewhere.cpp, "
                                 "line 120")
                      .arg(QString::fromLatin1(c.text))
                      .arg(c.code));
    }
}

TEST_F(ExceptionsTest, CommunicationErrorNamesCommandDeviceAndReply) {
    pell::test::ScopedPresenter boxes;
    const ulm_std::CCommException withReply(
        QStringLiteral("set,/par/ant/rcv/h,x"), QStringLiteral("Receiver"),
        QStringLiteral("{3,,wrong value}"), QStringLiteral("mate"));
    const ulm_std::CCommException withoutReply(QStringLiteral("print,/par/x"),
                                               QStringLiteral("Receiver"), QString(),
                                               QStringLiteral("mate"));
    withReply.ReportError(nullptr);
    withoutReply.ReportError(nullptr);
    ASSERT_EQ(boxes.Boxes().size(), 2u);
    EXPECT_EQ(boxes.Boxes()[0].text,
              QStringLiteral("The command \"set,/par/ant/rcv/h,x\" failed.\nReceiver replied: "
                             "{3,,wrong value}\n\nSource: mate"));
    EXPECT_EQ(boxes.Boxes()[1].text,
              QStringLiteral("The command \"print,/par/x\" failed.\n\nSource: mate"));
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
