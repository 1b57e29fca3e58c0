// TevMessagePanel: the host's message panel. Every line of DrawerOutput arrives here; level 2
// lines (faults) are shown in red, the others in the normal text colour. The panel keeps the
// lines it showed with their levels, for a caller that wants to read them back.
#ifndef TEVMESSAGEPANEL_H
#define TEVMESSAGEPANEL_H

#include <QString>
#include <QTextEdit>

#include <utility>
#include <vector>

class TevMessagePanel : public QTextEdit
{
    Q_OBJECT

public:
    explicit TevMessagePanel(QWidget* parent = nullptr);

    // The lines shown so far, oldest first, with their levels.
    const std::vector<std::pair<int, QString>>& Lines() const { return m_lines; }
    // The number of level 2 lines shown so far.
    int FaultCount() const;

public slots:
    void AddLine(int level, const QString& text);

private:
    std::vector<std::pair<int, QString>> m_lines;
};

#endif
