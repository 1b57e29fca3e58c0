/* vis_WriterLine: one line of a fixed-column deck, built in memory and written in one piece.
 *
 * Integers take "%<width>d" (wider when they do not fit), reals the field rule of vsy_Field
 * (vsy_RealToField(value, width, 1, 1) right-aligned, one column short with a blank behind it
 * when the text is shorter than width - 1) or the 16-column exponent form of vsy_RealToExp.
 * The buffer holds far more than any card a writer builds; a line is never longer than
 * VIS_WRITERLINE_LEN - 64 characters by construction of its callers.
 */
#ifndef VIS_WRITERLINE_H
#define VIS_WRITERLINE_H

#include "vis_Writer.h"
#include "vsy_Field.h"
#include "vsy_RealText.h"

#include <cstdio>
#include <cstring>

#define VIS_WRITERLINE_LEN 1024

struct vis_WriterLine {
    char buf[VIS_WRITERLINE_LEN];
    int len = 0;

    void Int(int value, int width) { len += vsy_FieldIntText(value, width, buf + len); }
    /* A real in a field of `width` columns by the field rule. */
    void Real(double value, int width)
    {
        char field[VSY_REALTEXT_LEN];
        vsy_FieldRealText(value, width, field);
        Text(field);
    }
    /* vsy_RealToExp(value, width, minexp, 1, 0) as it comes, with no padding. */
    void Exp(double value, int width, int minexp)
    {
        len += vsy_RealToExpLen(value, width, minexp, 1, 0, buf + len);
    }
    void Text(const char* text)
    {
        const int n = static_cast<int>(std::strlen(text));
        std::memcpy(buf + len, text, static_cast<size_t>(n));
        len += n;
    }
    void Char(char c) { buf[len++] = c; }
    /* Writes what was built and starts an empty line. */
    void Put(FILE* fp)
    {
        vis_Writer_Put(fp, buf, len);
        len = 0;
    }
    /* A line feed, then Put. */
    void End(FILE* fp)
    {
        buf[len++] = '\n';
        Put(fp);
    }
};

#endif
