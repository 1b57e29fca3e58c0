// Support of the neutral file suites: the writer run on a model, the header and real texts
// spelled out from the packet rules, and a checker of the packet structure.
#ifndef PATLWTTESTSUPPORT_H
#define PATLWTTESTSUPPORT_H

#include "NASFwtTestSupport.h"
#include "vis_PatLwt.h"

#include <cctype>
#include <cstdlib>
#include <sstream>

namespace pattest {

using nastest::I8;
using nastest::R;
using nastest::ReadFile;

// Writes the model with vis_PatLwt and returns the file; the writer's poll must be 0.
inline std::string WritePat(vis_Model* model, const std::string& path)
{
    vis_PatLwt* pat = vis_PatLwtNew();
    vis_PatLwtWriteModel(pat, model, path.c_str());
    EXPECT_EQ(vis_PatLwtError(pat), 0);
    vis_PatLwtDelete(pat);
    return ReadFile(path);
}

// A header "%2d%8d%8d%8d%8d%8d%8d%8d%8d\n".
inline std::string Head(int type, int id, int iv, int kc, int n1 = 0, int n2 = 0, int n3 = 0, int n4 = 0, int n5 = 0)
{
    std::string s = R(std::to_string(type), 2);
    for (int v : {id, iv, kc, n1, n2, n3, n4, n5}) s += I8(v);
    return s + "\n";
}

// A real in 16 columns: the exponent text with its sign or blank, e.g. E("1.000000000E+00").
inline std::string E(const std::string& text)
{
    return text[0] == '-' ? text : " " + text;
}

// The date line of packet 26 replaced by a fixed mark, once its form ("%-12s%8s%12s": a date
// dd-Mon-yy and three blanks, a time hh:mm:ss, nine blanks and the version "3.0") is checked.
inline std::string MaskDate(const std::string& file)
{
    // Characters of "dd-Mon-yy   hh:mm:ss         3.0": 'd' a digit, 'A' an upper case
    // letter, 'a' a lower case one, anything else itself.
    static const std::string form = "dd-Aaa-dd   dd:dd:dd         3.0";
    const size_t start = file.find('\n', file.find("\n26 ") + 1) + 1;
    const size_t end = file.find('\n', start);
    if (start == 0 || end == std::string::npos || end - start != form.size()) return file;
    for (size_t i = 0; i < form.size(); ++i) {
        const char c = file[start + i], f = form[i];
        const bool ok = f == 'd' ? std::isdigit(c) : f == 'A' ? std::isupper(c) : f == 'a' ? std::islower(c) : c == f;
        if (!ok) return file;
    }
    return file.substr(0, start) + "(date)" + file.substr(end);
}

// One packet as read: header fields and its cards.
struct Packet {
    int field[9];
    std::vector<std::string> cards;
};

// A header: 66 columns, a 2-wide and eight 8-wide integers.
inline bool ParseHeader(const std::string& line, int* field)
{
    if (line.size() != 66) return false;
    for (int f = 0; f < 9; ++f) {
        const std::string text = f == 0 ? line.substr(0, 2) : line.substr(2 + 8 * (f - 1), 8);
        char* end = nullptr;
        field[f] = int(std::strtol(text.c_str(), &end, 10));
        if (*end != '\0' || text.find_first_not_of(' ') == std::string::npos) return false;
    }
    return true;
}

// The reals of a card of 16-column exponent fields: each " d.dddddddddE+dd" form; "" for a
// card that is not one.
inline bool RealField(const std::string& f)
{
    // Sign or blank, a digit, the point, digits, 'E', the exponent's sign, two or three digits.
    const size_t e = f.find('E');
    if (f.size() != 16 || (f[0] != ' ' && f[0] != '-') || !std::isdigit(f[1]) || f[2] != '.') return false;
    if (e == std::string::npos || e < 4 || e + 4 > f.size() || (f[e + 1] != '+' && f[e + 1] != '-')) return false;
    for (size_t i = 3; i < f.size(); ++i)
        if (i != e && i != e + 1 && !std::isdigit(f[i])) return false;
    return true;
}

inline bool RealCard(const std::string& card, int n, std::vector<double>* out = nullptr)
{
    if (n < 1 || n > 5 || card.size() != size_t(16 * n)) return false;
    for (int i = 0; i < n; ++i) {
        const std::string f = card.substr(16 * i, 16);
        if (!RealField(f)) return false;
        if (out) out->push_back(std::strtod(f.c_str(), nullptr));
    }
    return true;
}

// n reals in cards of five from `first`; false when a card does not hold its share.
inline bool RealCards(const Packet& p, size_t first, int n, std::vector<double>* out = nullptr)
{
    if (p.cards.size() != first + size_t((n + 4) / 5)) return false;
    for (size_t c = first; c < p.cards.size(); ++c, n -= 5)
        if (!RealCard(p.cards[c], n < 5 ? n : 5, out)) return false;
    return true;
}

inline bool Digits(const std::string& s)
{
    return !s.empty() && s.find_first_not_of("01") == std::string::npos;
}

// Cards of integer fields of width 8, `per` to a card, n in all, from card `first`.
inline bool IntCards(const Packet& p, size_t first, int n, int per, int width = 8)
{
    for (size_t c = first; c < p.cards.size(); ++c) {
        const int k = n < per ? n : per;
        if (p.cards[c].size() != size_t(width * k)) return false;
        for (int i = 0; i < k; ++i) {
            const std::string f = p.cards[c].substr(width * i, width);
            char* end = nullptr;
            std::strtol(f.c_str(), &end, 10);
            if (*end != '\0') return false;
        }
        n -= k;
    }
    return n == 0;
}

// Why a packet's cards do not follow its type's layout, or "".
inline std::string PacketFault(const Packet& p)
{
    const int type = p.field[0], kc = p.field[3];
    const auto& c = p.cards;
    auto card = [&](size_t i) { return i < c.size() ? c[i] : std::string("(none)"); };
    switch (type) {
    case 25: return kc == 1 ? "" : "title KC";
    case 26: return card(0).size() == 32 ? "" : "summary card";
    case 1: {
        // "1G", three 8-wide integers, two blanks, six flags.
        const std::string s = card(1);
        const bool second = s.size() == 34 && s.compare(0, 2, "1G") == 0 && IntCards(Packet{{}, {s.substr(2, 24)}}, 0, 3, 3) &&
                            s.compare(26, 2, "  ") == 0 && Digits(s.substr(28));
        return kc == 2 && RealCard(card(0), 3) && second ? "" : "node cards";
    }
    case 2: {
        if (card(0).size() != 80 || !RealCard(card(0).substr(32), 3)) return "element card";
        const int n = std::atoi(card(0).substr(0, 8).c_str());
        return kc == (n + 9) / 10 + 1 && IntCards(p, 1, n, 10) ? "" : "element nodes";
    }
    case 5: return kc == 4 && RealCards(p, 0, 18) ? "" : "frame cards";
    case 6: {
        const std::string f = card(0);
        if (f.size() != 19 || !Digits(f.substr(0, 17)) || f.substr(17) != " 0") return "pressure flags";
        for (int m = 1; m <= 5 * (kc - 1); ++m)
            if (RealCards(p, 1, m)) return "";
        return "pressure values";
    }
    case 7:
    case 8: {
        const std::string f = card(0);
        if (f.size() != 14 || !Digits(f.substr(8))) return "dof flags";
        int n = 0;
        for (char ch : f.substr(8)) n += ch == '1';
        return RealCards(p, 1, n) ? "" : "dof values";
    }
    case 10:
    case 15: return kc == 1 && p.field[4] == 1 && RealCards(p, 0, 1) ? "" : "node value";
    case 14: {
        const int n = p.field[4] + 1;
        if (kc != n / 2 + 2 || card(0) != std::string(24, ' ') + R("MPC", 12)) return "constraint head";
        if (card(1).size() != 32 || !RealCard(card(1).substr(16), 1)) return "first term";
        int left = n - 1;
        for (size_t i = 2; i < c.size(); ++i) {
            const int k = left < 2 ? left : 2;
            if (c[i].size() != size_t(32 * k)) return "terms";
            for (int t = 0; t < k; ++t)
                if (!RealCard(c[i].substr(32 * t + 16, 16), 1)) return "term factor";
            left -= k;
        }
        return left == 0 ? "" : "term count";
    }
    case 16:
    case 17: {
        const std::string f = card(0);
        if (f.size() != 10 || f[1] != ' ' || !Digits(f.substr(2))) return "heat flags";
        for (int m = 1; m <= 5 * (kc - 1); ++m)
            if (RealCards(p, 1, m)) return "";
        return "heat values";
    }
    case 21: {
        const int n = p.field[2] / 2;
        return kc == (2 * n + 9) / 10 + 1 && !card(0).empty() && IntCards(p, 1, 2 * n, 10) ? "" : "group cards";
    }
    default: return "unknown packet type";
    }
}

// Reads a file as packets and checks each: a header of 66 columns, then KC cards in the
// layout of its type, packet 99 (with no card) last. Returns the faults, empty for a clean
// file; `packets` receives what was read.
inline std::string CheckPackets(const std::string& file, std::vector<Packet>* packets = nullptr)
{
    std::istringstream in(file);
    std::string line, faults;
    std::vector<Packet> read;
    bool ended = false;
    while (std::getline(in, line)) {
        Packet p;
        if (ended) return faults + "data after packet 99\n";
        if (!ParseHeader(line, p.field)) return faults + "not a header: '" + line + "'\n";
        if (p.field[0] == 99) {
            ended = true;
            read.push_back(p);
            continue;
        }
        for (int k = 0; k < p.field[3] && std::getline(in, line); ++k) p.cards.push_back(line);
        if (int(p.cards.size()) != p.field[3]) return faults + "file ends inside a packet\n";
        const std::string why = PacketFault(p);
        if (!why.empty()) faults += "packet " + std::to_string(p.field[0]) + " id " + std::to_string(p.field[1]) + ": " + why + "\n";
        read.push_back(p);
    }
    if (!ended) faults += "no packet 99\n";
    if (packets) *packets = read;
    return faults;
}

// The packet types of a file in order.
inline std::vector<int> Types(const std::string& file)
{
    std::vector<Packet> p;
    CheckPackets(file, &p);
    std::vector<int> t;
    for (const Packet& x : p) t.push_back(x.field[0]);
    return t;
}

} // namespace pattest

#endif
