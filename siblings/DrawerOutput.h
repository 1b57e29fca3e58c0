// DrawerOutput: the message line of the host's message panel. Operations print prompts at
// level 0 and faults at level 2; each line goes out through m_signal_Message to any host widget
// connected to it. With nothing connected, lines go to standard error so that no fault is lost.
#ifndef DRAWEROUTPUT_H
#define DRAWEROUTPUT_H

#include <QObject>
#include <QString>

class DrawerOutput : public QObject
{
    Q_OBJECT

public:
    static DrawerOutput* GetInstance();

    // Formats one line printf-style (the text is in the local 8-bit encoding) and emits it.
    void EmitMessage2MessageWidget(int level, const char* format, ...)
#if defined(__GNUC__)
        __attribute__((format(printf, 3, 4)))
#endif
        ;
    // printf-style formatting into a QString; the format is in the local 8-bit encoding.
    static QString GetQStringFromChar(const char* format, ...)
#if defined(__GNUC__)
        __attribute__((format(printf, 1, 2)))
#endif
        ;
    // The same with a UTF-8 format: the library's own non-ASCII texts are UTF-8 literals, and
    // read this way they show the same whatever the host's locale is.
    static QString GetQStringFromUtf8(const char* format, ...)
#if defined(__GNUC__)
        __attribute__((format(printf, 1, 2)))
#endif
        ;
    // Emits one line that is already text, with no 8-bit encoding on the way.
    void EmitMessage(int level, const QString& text);

signals:
    void m_signal_Message(int level, QString text);

private:
    DrawerOutput() = default;
    static DrawerOutput* m_Instance;
};

#endif
