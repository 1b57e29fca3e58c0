// The message line: formatting, levels and the signal that carries each line to the host.
#include "DrawerOutput.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

TEST(DrawerOutput, EmitsEachFormattedLineWithItsLevel)
{
    std::vector<std::pair<int, QString>> lines;
    QMetaObject::Connection c = QObject::connect(DrawerOutput::GetInstance(), &DrawerOutput::m_signal_Message,
                                                 [&lines](int level, QString text) { lines.emplace_back(level, text); });
    DrawerOutput::GetInstance()->EmitMessage2MessageWidget(0, "Line : Pick First Point ");
    DrawerOutput::GetInstance()->EmitMessage2MessageWidget(2, "SetShapeOpacity actor NULL");
    DrawerOutput::GetInstance()->EmitMessage2MessageWidget(0, "%d edges, r= %.2f", 6, 2.5);
    QObject::disconnect(c);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].first, 0);
    EXPECT_EQ(lines[0].second, "Line : Pick First Point ");
    EXPECT_EQ(lines[1].first, 2);
    EXPECT_EQ(lines[1].second, "SetShapeOpacity actor NULL");
    EXPECT_EQ(lines[2].second, "6 edges, r= 2.50");
}

TEST(DrawerOutput, LongLinesAreNotCut)
{
    QString got;
    QMetaObject::Connection c = QObject::connect(DrawerOutput::GetInstance(), &DrawerOutput::m_signal_Message,
                                                 [&got](int, QString text) { got = text; });
    const std::string longText(5000, 'x');
    DrawerOutput::GetInstance()->EmitMessage2MessageWidget(0, "%s", longText.c_str());
    QObject::disconnect(c);
    EXPECT_EQ(got.size(), 5000);
}

TEST(DrawerOutput, GetQStringFromCharFormatsLikePrintf)
{
    EXPECT_EQ(DrawerOutput::GetQStringFromChar("Snap Grid:%4.5f, %5.5f, %5.5f", 1.0, -2.5, 0.0),
              "Snap Grid:1.00000, -2.50000, 0.00000");
    EXPECT_EQ(DrawerOutput::GetQStringFromChar("%s", ""), "");
    EXPECT_TRUE(DrawerOutput::GetQStringFromChar(nullptr).isEmpty());
}

// UTF-8 formats read as UTF-8 whatever the locale: the byte values below are the UTF-8 encoding
// of the two characters, given by hand so that the source's own encoding plays no part.
TEST(DrawerOutput, GetQStringFromUtf8ReadsTheFormatAsUtf8)
{
    const QString text = DrawerOutput::GetQStringFromUtf8("\xe9\x80\x89\xe4\xb8\xad %d", 3);
    ASSERT_EQ(text.size(), 4);
    EXPECT_EQ(text.at(0).unicode(), 0x9009);  // U+9009, bytes e9 80 89
    EXPECT_EQ(text.at(1).unicode(), 0x4e2d);  // U+4E2D, bytes e4 b8 ad
    EXPECT_EQ(text.mid(2), " 3");
}

TEST(DrawerOutput, EmitMessagePassesTheTextAsItIs)
{
    std::vector<std::pair<int, QString>> lines;
    QMetaObject::Connection c = QObject::connect(DrawerOutput::GetInstance(), &DrawerOutput::m_signal_Message,
                                                 [&lines](int level, QString text) { lines.emplace_back(level, text); });
    const QString text = QString(QChar(0x9009)) + " 100%";  // no printf formatting on the way
    DrawerOutput::GetInstance()->EmitMessage(2, text);
    QObject::disconnect(c);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].first, 2);
    EXPECT_EQ(lines[0].second, text);
}
