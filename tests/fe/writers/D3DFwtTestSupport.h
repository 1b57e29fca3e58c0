// Support of the keyword deck suites: the writer run on a model, the field helpers that spell
// out the card formats, and a checker of the column layout of every card line.
#ifndef D3DFWTTESTSUPPORT_H
#define D3DFWTTESTSUPPORT_H

#include "NASFwtTestSupport.h"
#include "vis_D3DFwt.h"

#include <map>
#include <sstream>

namespace d3dtest {

using nastest::R;
using nastest::ReadFile;

// Writes the model with vis_D3DFwt and returns the deck; the writer's poll must be 0.
inline std::string WriteDyna(vis_Model* model, const std::string& path)
{
    vis_D3DFwt* d3d = vis_D3DFwtNew();
    vis_D3DFwtWriteModel(d3d, model, path.c_str());
    EXPECT_EQ(vis_D3DFwtError(d3d), 0);
    vis_D3DFwtDelete(d3d);
    return ReadFile(path);
}

using nastest::I8;
// "%10d".
inline std::string I10(int v) { return R(std::to_string(v), 10); }
// A real field of `width` columns holding `text`: a text shorter than width - 1 stands in
// width - 1 columns with one blank behind it, a longer one fills the width.
inline std::string F(const std::string& text, size_t width)
{
    return text.size() < width - 1 ? R(text, width - 1) + " " : R(text, width);
}
inline std::string F10(const std::string& text) { return F(text, 10); }
inline std::string F16(const std::string& text) { return F(text, 16); }
// "%8d" fields of a row of integers.
inline std::string Ints8(std::initializer_list<int> v)
{
    std::string s;
    for (int x : v) s += I8(x);
    return s;
}

// One field of a card: 'i' integer or 'r' real, and its width.
struct Field {
    char kind;
    int width;
};
using Layout = std::vector<Field>;

inline Layout Fields(std::initializer_list<std::pair<int, Field>> runs)
{
    Layout l;
    for (const auto& r : runs)
        for (int i = 0; i < r.first; ++i) l.push_back(r.second);
    return l;
}

// The layouts a data line under each keyword may take; a keyword whose lines cycle through
// several layouts (systems, shell sections, ten-node tetrahedra) lists them in order.
struct CardRule {
    std::vector<Layout> layouts;
    bool cycle; // line n takes layout n modulo the count; otherwise any one of them
};

inline const std::map<std::string, CardRule>& CardRules()
{
    const Field i8{'i', 8}, i10{'i', 10}, r10{'r', 10}, r16{'r', 16};
    static const std::map<std::string, CardRule> rules = {
        {"*NODE", {{Fields({{1, i8}, {3, r16}})}, false}},
        // Ten fields; a ten-node tetrahedron's card of two fields and its line of ten nodes.
        {"*ELEMENT_SOLID", {{Fields({{10, i8}}), Fields({{2, i8}})}, false}},
        {"*ELEMENT_SHELL", {{Fields({{6, i8}})}, false}},
        {"*ELEMENT_BEAM", {{Fields({{4, i8}}), Fields({{5, i8}})}, false}},
        {"*ELEMENT_MASS", {{Fields({{2, i8}, {1, r16}})}, false}},
        {"*DEFINE_COORDINATE_SYSTEM", {{Fields({{1, i10}, {6, r10}}), Fields({{3, r10}})}, true}},
        {"*SECTION_SOLID", {{Fields({{1, i10}})}, false}},
        {"*SECTION_SHELL", {{Fields({{2, i10}, {1, r10}}), Fields({{6, r10}})}, true}},
        {"*MAT_ELASTIC", {{Fields({{1, i10}, {3, r10}})}, false}},
        {"*BOUNDARY_SPC_NODE", {{Fields({{8, i10}})}, false}},
        {"*DEFINE_CURVE", {{Fields({{2, i10}, {4, r10}})}, false}},
        {"*LOAD_SEGMENT", {{Fields({{1, i10}, {2, r10}, {4, i10}})}, false}},
    };
    return rules;
}

// Why a line does not fit a layout, or "" when it does: the line is exactly as long as its
// fields; an integer field is blanks then an optional '-' and digits, reaching the field's end;
// a real field parses as a whole and ends in its last column or in one trailing blank.
inline std::string Misfit(const std::string& line, const Layout& layout)
{
    size_t total = 0;
    for (const Field& f : layout) total += f.width;
    if (line.size() != total) return "length " + std::to_string(line.size()) + " for " + std::to_string(total);
    size_t at = 0;
    for (const Field& f : layout) {
        std::string field = line.substr(at, f.width);
        at += f.width;
        const size_t first = field.find_first_not_of(' ');
        if (first == std::string::npos) return "empty field";
        std::string text = field.substr(first);
        if (f.kind == 'r' && text.back() == ' ') text.pop_back();
        if (text.find(' ') != std::string::npos) return "blank inside '" + field + "'";
        char* end = nullptr;
        if (f.kind == 'i') std::strtol(text.c_str(), &end, 10);
        else std::strtod(text.c_str(), &end);
        if (*end != '\0') return "not a number '" + field + "'";
        if (f.kind == 'r' && text.find_first_of(".E") == std::string::npos) return "real without point '" + field + "'";
    }
    return "";
}

// Checks every line of a deck: no line above 80 columns except free text (titles, names, set
// commands), and every data line under a card keyword in one of that keyword's layouts.
// Returns the faults found, one per line, empty for a clean deck.
inline std::string CheckDeck(const std::string& deck)
{
    std::istringstream in(deck);
    std::string line, keyword, faults;
    int n = 0, lineno = 0;
    bool text = false; // the next line is free text: a title or a part name
    while (std::getline(in, line)) {
        ++lineno;
        const std::string where = "line " + std::to_string(lineno) + " '" + line + "': ";
        if (text) {
            text = false;
            continue;
        }
        if (line.rfind("$", 0) == 0 || line.rfind("C***", 0) == 0) continue;
        if (line.rfind("NSEL,", 0) == 0 || line.rfind("ESEL,", 0) == 0 || line.rfind("CM,", 0) == 0) continue;
        if (line.size() > 80) faults += where + "longer than 80\n";
        if (line.rfind("*", 0) == 0) {
            keyword = line;
            n = 0;
            text = line == "*TITLE" || line == "*PART";
            continue;
        }
        auto rule = CardRules().find(keyword);
        if (keyword == "*PART") {
            const std::string why = Misfit(line, Fields({{3, {'i', 10}}}));
            if (!why.empty()) faults += where + why + "\n";
            continue;
        }
        if (rule == CardRules().end()) {
            faults += where + "data line under " + keyword + "\n";
            continue;
        }
        const auto& layouts = rule->second.layouts;
        std::string why = "no layout";
        if (rule->second.cycle) why = Misfit(line, layouts[n % layouts.size()]);
        else
            for (const Layout& l : layouts)
                if ((why = Misfit(line, l)).empty()) break;
        if (!why.empty()) faults += where + why + "\n";
        ++n;
    }
    return faults;
}

} // namespace d3dtest

#endif
