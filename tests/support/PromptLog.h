// Collects the lines DrawerOutput emits while it lives, with their levels.
#ifndef PROMPTLOG_H
#define PROMPTLOG_H

#include "DrawerOutput.h"

#include <QObject>
#include <QString>

#include <vector>

namespace tevtest {

class PromptLog
{
public:
    PromptLog()
    {
        m_connection = QObject::connect(DrawerOutput::GetInstance(), &DrawerOutput::m_signal_Message,
                                        [this](int level, QString text) {
                                            levels.push_back(level);
                                            lines.push_back(text);
                                        });
    }
    ~PromptLog() { QObject::disconnect(m_connection); }
    PromptLog(const PromptLog&) = delete;
    PromptLog& operator=(const PromptLog&) = delete;

    void Clear()
    {
        lines.clear();
        levels.clear();
    }

    std::vector<QString> lines;
    std::vector<int> levels;

private:
    QMetaObject::Connection m_connection;
};

}  // namespace tevtest

#endif
