#include "DrawerOutput.h"

#include <QByteArray>

#include <cstdarg>
#include <cstdio>

DrawerOutput* DrawerOutput::m_Instance = nullptr;

DrawerOutput* DrawerOutput::GetInstance()
{
    if (!m_Instance) m_Instance = new DrawerOutput();
    return m_Instance;
}

// vsnprintf into a buffer of the exact size, so that no line is ever cut.
static QByteArray FormatBytes(const char* format, va_list ap)
{
    if (!format) return QByteArray();
    va_list copy;
    va_copy(copy, ap);
    const int n = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    if (n <= 0) return QByteArray();
    QByteArray bytes(n + 1, '\0');
    std::vsnprintf(bytes.data(), bytes.size(), format, ap);
    bytes.resize(n);
    return bytes;
}

void DrawerOutput::EmitMessage2MessageWidget(int level, const char* format, ...)
{
    va_list ap;
    va_start(ap, format);
    const QString text = QString::fromLocal8Bit(FormatBytes(format, ap));
    va_end(ap);
    EmitMessage(level, text);
}

void DrawerOutput::EmitMessage(int level, const QString& text)
{
    if (receivers(SIGNAL(m_signal_Message(int, QString))) == 0)
        std::fprintf(stderr, "[%d] %s\n", level, text.toLocal8Bit().constData());
    emit m_signal_Message(level, text);
}

QString DrawerOutput::GetQStringFromChar(const char* format, ...)
{
    va_list ap;
    va_start(ap, format);
    const QString text = QString::fromLocal8Bit(FormatBytes(format, ap));
    va_end(ap);
    return text;
}

QString DrawerOutput::GetQStringFromUtf8(const char* format, ...)
{
    va_list ap;
    va_start(ap, format);
    const QString text = QString::fromUtf8(FormatBytes(format, ap));
    va_end(ap);
    return text;
}
