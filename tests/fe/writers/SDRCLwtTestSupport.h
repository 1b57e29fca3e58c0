// Support of the universal file suites: the writer run on a model, and the texts of the
// format's fields spelled out from their rules.
#ifndef SDRCLWTTESTSUPPORT_H
#define SDRCLWTTESTSUPPORT_H

#include "NASFwtTestSupport.h"
#include "vis_SDRCLwt.h"

#include <initializer_list>
#include <string>

namespace sdrctest {

using nastest::R;

inline std::string I10(int v) { return R(std::to_string(v), 10); }
inline std::string I10s(std::initializer_list<int> vs)
{
    std::string s;
    for (int v : vs) s += I10(v);
    return s + "\n";
}

// vsy_RealToExp(v, width, 2, 1, 0) of a value given by hand as its sign, its leading digit, its
// further decimals and its exponent: the sign or a blank, the digit, the point, the decimals
// filled with zeros to 15 (width 25) or 6 (width 13), 'E', the exponent's sign, two digits;
// then right-aligned by "%25s" or "%13s".
inline std::string E(int width, const std::string& mantissa, int exp)
{
    const bool neg = mantissa[0] == '-';
    const std::string m = neg ? mantissa.substr(1) : mantissa;
    std::string digits = m.substr(0, 1), decimals = m.size() > 2 ? m.substr(2) : "";
    const size_t keep = width == 13 ? 6 : 15;
    decimals += std::string(keep > decimals.size() ? keep - decimals.size() : 0, '0');
    decimals = decimals.substr(0, keep);
    const int a = exp < 0 ? -exp : exp;
    std::string text = std::string(neg ? "-" : " ") + digits + "." + decimals + "E" + (exp < 0 ? "-" : "+") +
                       (a < 10 ? "0" : "") + std::to_string(a);
    return R(text, static_cast<size_t>(width));
}
inline std::string E25(const std::string& mantissa, int exp) { return E(25, mantissa, exp); }
inline std::string E13(const std::string& mantissa, int exp) { return E(13, mantissa, exp); }

inline const std::string kFence = "    -1\n";
inline std::string Open(int dataset) { return kFence + R(std::to_string(dataset), 6) + "\n"; }

// Writes the model; the writer's poll must be 0.
inline std::string WriteUnv(vis_Model* model, const std::string& path)
{
    vis_SDRCLwt* w = vis_SDRCLwtNew();
    vis_SDRCLwtWriteModel(w, model, path.c_str());
    EXPECT_EQ(vis_SDRCLwtError(w), 0);
    vis_SDRCLwtDelete(w);
    return nastest::ReadFile(path);
}

// The part of a file from the opening of `dataset` to its closing fence, both included;
// "(no dataset)" when it is missing.
inline std::string DatasetOf(const std::string& file, int dataset)
{
    const std::string head = Open(dataset);
    const size_t at = file.find(head);
    if (at == std::string::npos) return "(no dataset)";
    const size_t end = file.find(kFence, at + head.size());
    return end == std::string::npos ? file.substr(at) : file.substr(at, end + kFence.size() - at);
}

}  // namespace sdrctest

#endif
