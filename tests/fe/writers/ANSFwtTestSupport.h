// Support of the ANSYS writer suites: writing a model, and the syntax check every written file
// passes: each line is a command the writer's format names, with its number of arguments, and
// every number reads back as a number whose text the writer would print again unchanged.
#ifndef ANSFWTTESTSUPPORT_H
#define ANSFWTTESTSUPPORT_H

#include "NASFwtTestSupport.h"
#include "vis_ANSFwt.h"
#include "vsy_RealText.h"

#include <cmath>
#include <cstring>
#include <map>
#include <sstream>

namespace anstest {

using nastest::ReadFile;

// The fields of a command line split at the commas; the first is the command.
inline std::vector<std::string> Fields(const std::string& line)
{
    std::vector<std::string> f;
    std::string cur;
    for (char c : line) {
        if (c == ',') f.push_back(cur), cur.clear();
        else cur.push_back(c);
    }
    f.push_back(cur);
    return f;
}

// Argument counts (fields after the command): the least and the most.
struct Arity {
    int lo, hi;
};
inline const std::map<std::string, Arity>& Commands()
{
    static const std::map<std::string, Arity> table = {
        {"/TITLE", {2, 2}},   {"/STITLE", {2, 2}},  {"/PREP7", {0, 0}},    {"/SOLUTION", {0, 0}},
        {"SOLVE", {0, 0}},    {"FINISH", {0, 0}},   {"LOCAL", {8, 8}},     {"CSYS", {1, 1}},
        {"N", {4, 7}},        {"ET", {2, 8}},       {"KEYOPT", {2, 2}},    {"R", {2, 16}},
        {"ESYS", {1, 1}},     {"TYPE", {1, 1}},     {"MAT", {1, 1}},       {"REAL", {1, 1}},
        {"SECNUM", {1, 1}},   {"EN", {2, 9}},       {"EMORE", {1, 8}},     {"CERIG", {3, 8}},
        {"*DIM", {3, 3}},     {"*SET", {2, 2}},     {"RBE3", {3, 9}},      {"SECTYPE", {2, 3}},
        {"SECDATA", {1, 12}}, {"SECCONTROL", {2, 5}}, {"MP", {3, 3}},      {"CMBLOCK", {3, 3}},
        {"ANTYPE", {1, 1}},   {"PSTRES", {1, 1}},   {"MODOPT", {6, 6}},    {"MXPAND", {4, 4}},
        {"BUCOPT", {4, 4}},   {"ICDELE", {0, 0}},   {"DDELE", {2, 2}},     {"CEDELE", {2, 2}},
        {"FDELE", {2, 2}},    {"SFEDELE", {3, 3}},  {"BFDELE", {2, 2}},    {"BFEDELE", {2, 2}},
        {"LSCLEAR", {1, 1}},  {"FCUM", {1, 1}},     {"IC", {3, 4}},        {"D", {3, 11}},
        {"CE", {5, 11}},      {"F", {3, 3}},        {"BF", {3, 3}},        {"SFE", {5, 8}},
        {"ACEL", {3, 3}},     {"CGLOC", {3, 3}},    {"CGOMGA", {3, 3}},    {"BFE", {4, 24}},
    };
    return table;
}

// Fields that hold names, not numbers: by command, the argument positions (from 1).
inline bool NameField(const std::string& cmd, size_t at, const std::vector<std::string>& f)
{
    if (cmd == "/TITLE" || cmd == "/STITLE" || cmd == "CMBLOCK" || cmd == "ANTYPE" || cmd == "PSTRES" ||
        cmd == "FCUM" || cmd == "LSCLEAR" || cmd == "RBE3" || cmd == "CERIG" || cmd == "*DIM" || cmd == "*SET")
        return true;
    if (cmd == "ET" || cmd == "MP") return at <= 2 && (cmd == "ET" ? at == 2 : at == 1);
    if (cmd == "SECTYPE") return at >= 2;
    if (cmd == "MODOPT" || cmd == "BUCOPT") return at == 1 || at == 5 || at == 6;
    if (cmd == "MXPAND") return at == 4;
    if (cmd == "DDELE" || cmd == "CEDELE" || cmd == "FDELE" || cmd == "SFEDELE" || cmd == "BFDELE" ||
        cmd == "BFEDELE")
        return true;
    if (cmd == "IC" || cmd == "F" || cmd == "BF" || cmd == "BFE") return at == 2;
    if (cmd == "D") return at == 2 || at >= 7;
    if (cmd == "SFE") return at == 3;
    if (cmd == "CE") return at >= 3 && (at - 3) % 3 == 1 && !f[at].empty() && !std::isdigit(f[at][0]);
    return false;
}

// A number field: an integer, or a real whose text the writer's forms give again from the value
// read back: vsy_RealToField(v, 16, 1, 1) for a command's real, "%16.9E" for a coordinate. The
// written text holds at most fifteen digits, so the value read rounds to the same digits.
inline ::testing::AssertionResult Number(const std::string& cmd, const std::string& text)
{
    if (text.empty()) return ::testing::AssertionSuccess();
    char* end = nullptr;
    const double v = std::strtod(text.c_str(), &end);
    if (*end != '\0') return ::testing::AssertionFailure() << cmd << ": not a number '" << text << "'";
    if (text.find_first_of(".eE") == std::string::npos) return ::testing::AssertionSuccess();
    char field[VSY_REALTEXT_LEN], exp[32];
    vsy_RealToField(v, 16, 1, 1, field);
    std::snprintf(exp, sizeof exp, "%16.9E", v);
    if (text == field || text == exp) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << cmd << ": '" << text << "' does not read back";
}

// Checks every line of a written file; returns the number of command lines.
inline int CheckSyntax(const std::string& text)
{
    std::istringstream in(text);
    std::string line;
    int commands = 0, idlines = 0;
    bool format = false;
    while (std::getline(in, line)) {
        if (line.rfind("C***       ", 0) == 0) continue;
        if (format) {  // "(8i10)" after CMBLOCK
            EXPECT_EQ(line, "(8i10)");
            format = false;
            continue;
        }
        if (idlines > 0) {  // ids in ten columns, eight a line
            const int n = idlines < 8 ? idlines : 8;
            idlines -= n;
            if (line.size() != static_cast<size_t>(10 * n)) {
                ADD_FAILURE() << "id line of " << n << " ids: '" << line << "'";
                continue;
            }
            for (int k = 0; k < n; ++k) EXPECT_GT(std::atoi(line.substr(10 * static_cast<size_t>(k), 10).c_str()), 0) << line;
            continue;
        }
        const std::vector<std::string> f = Fields(line);
        const auto it = Commands().find(f[0]);
        if (it == Commands().end()) {
            ADD_FAILURE() << "not a command: " << line;
            continue;
        }
        ++commands;
        const int args = static_cast<int>(f.size()) - 1;
        EXPECT_GE(args, it->second.lo) << line;
        EXPECT_LE(args, it->second.hi) << line;
        for (size_t k = 1; k < f.size(); ++k) {
            if (NameField(f[0], k, f)) continue;
            EXPECT_TRUE(Number(f[0], f[k])) << line;
        }
        if (f[0] == "CMBLOCK" && f.size() == 4) {
            format = true;
            idlines = std::atoi(f[3].c_str());
        }
    }
    EXPECT_FALSE(format);
    EXPECT_EQ(idlines, 0);
    return commands;
}

// Writer fixture: writes a model and checks the file's syntax.
class ANSWriterTest : public nastest::WriterTest {
protected:
    std::string Write(vis_Model* model, const std::string& name, int blocks = 1)
    {
        const std::string path = File(name);
        vis_ANSFwt* ans = vis_ANSFwtNew();
        if (!blocks) vis_ANSFwtSetParami(ans, VIS_ANSFWT_BLOCKS, 0);
        vis_ANSFwtWriteModel(ans, model, path.c_str());
        EXPECT_EQ(vis_ANSFwtError(ans), 0);
        vis_ANSFwtDelete(ans);
        const std::string text = ReadFile(path);
        EXPECT_GT(CheckSyntax(text), 0);
        return text;
    }
    // A model of one connectivity only.
    vis_Model* Model(vis_Connect* c)
    {
        connects.push_back(c);
        models.push_back(vis_ModelNew());
        vis_ModelSetObject(models.back(), SYS_CONNECT, c);
        return models.back();
    }
    void TearDown() override
    {
        for (vis_Model* m : models) vis_ModelDelete(m);
        for (vis_Connect* c : connects) vis_ConnectDelete(c);
        WriterTest::TearDown();
    }
    std::vector<vis_Model*> models;
    std::vector<vis_Connect*> connects;
};

// "%16.9E" of a digit 0 to 9: a blank for the sign, the digit, the point, nine zeros, "E+00".
inline std::string C(int digit)
{
    return " " + std::to_string(digit) + ".000000000E+00";
}

// Nodes 1 to n at the origin, ids equal to the indices, and their section of the file.
inline std::vector<nastest::MeshNode> Origin(int n)
{
    std::vector<nastest::MeshNode> nodes;
    for (int i = 1; i <= n; ++i) nodes.push_back({{0, 0, 0}, i, 1, 0});
    return nodes;
}
inline std::string OriginLines(int n)
{
    std::string s = "C***       Nodes\nCSYS,0\n";
    for (int i = 1; i <= n; ++i) s += "N," + std::to_string(i) + "," + C(0) + "," + C(0) + "," + C(0) + "\n";
    return s;
}
// Node indices 1 to n.
inline std::vector<int> Seq(int n)
{
    std::vector<int> v;
    for (int i = 1; i <= n; ++i) v.push_back(i);
    return v;
}

// The coordinates of every "N" line, by node id, read back.
inline std::map<int, std::vector<double>> NodeLines(const std::string& text)
{
    std::map<int, std::vector<double>> nodes;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        const std::vector<std::string> f = Fields(line);
        if (f[0] != "N" || f.size() < 5) continue;
        nodes[std::atoi(f[1].c_str())] = {std::strtod(f[2].c_str(), nullptr), std::strtod(f[3].c_str(), nullptr),
                                          std::strtod(f[4].c_str(), nullptr)};
    }
    return nodes;
}

}  // namespace anstest

#endif
