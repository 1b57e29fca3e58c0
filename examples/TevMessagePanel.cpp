#include "TevMessagePanel.h"

#include <QTextCursor>

TevMessagePanel::TevMessagePanel(QWidget* parent) : QTextEdit(parent)
{
    setObjectName("messagePanel");
    setReadOnly(true);
    setToolTip(tr("Prompts of the running operation and reports; faults in red"));
}

int TevMessagePanel::FaultCount() const
{
    int count = 0;
    for (const auto& line : m_lines) count += line.first >= 2;
    return count;
}

void TevMessagePanel::AddLine(int level, const QString& text)
{
    m_lines.emplace_back(level, text);
    const QString html = text.toHtmlEscaped();
    append(level >= 2 ? QString("<span style=\"color:#c00000;\">%1</span>").arg(html) : html);
    moveCursor(QTextCursor::End);
}
