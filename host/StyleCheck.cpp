#include "StyleCheck.h"

#include "Texts.h"

#include <bindings/distinct/LikenessWords.h>

#include <utility>

namespace atlashost
{
namespace
{

using namespace styleatlas::distinct;
using styleatlas::Color;

constexpr Color Paper{0xFFFFFF};

// Why two curves look alike; empty if they don't.
std::string WhyAlike(const Drawn& one, const Drawn& other)
{
    if (one.Look() == other.Look())
        return Text("the same symbol, line and colours");
    if (!one.HasFigureOf(other))
        return {};
    const std::vector<Closeness> close = TooClose(one, other);
    return close.empty() ? std::string{} : Text("too close in colour: %1", {InWords(close, Text)});
}

// Why a curve is hard to see; empty if it isn't.
std::string WhyFaint(const Drawn& curve)
{
    if (!curve.IsVisible())
        return Text("neither symbol nor line");
    const std::vector<Faintness> faint = TooFaint(curve, Paper);
    if (faint.empty())
        return {};
    std::string contrasts = OneDecimal(faint.front().contrast);
    if (faint.size() > 1)
        contrasts += ", " + OneDecimal(faint.back().contrast);
    return Text("too little contrast to the white ground: %1", {contrasts});
}

class Inspection
{
public:
    void CheckPanel(std::size_t panel, const std::vector<Curve>& curves)
    {
        std::vector<Drawn> drawn;
        drawn.reserve(curves.size());
        for (const Curve& curve : curves)
            drawn.emplace_back(curve.style);
        for (std::size_t i = 0; i < drawn.size(); ++i) {
            if (std::string reason = WhyFaint(drawn[i]); !reason.empty())
                Add(m_check.faint, {{panel, i}, std::nullopt, std::move(reason)});
            for (std::size_t j = i + 1; j < drawn.size(); ++j) {
                if (std::string reason = WhyAlike(drawn[i], drawn[j]); !reason.empty())
                    Add(m_check.pairs, {{panel, i}, CurvePlace{panel, j}, std::move(reason)});
            }
        }
    }

    StyleCheck Finish() { return std::move(m_check); }

private:
    void Add(std::vector<CurveRemark>& remarks, CurveRemark remark)
    {
        if (remarks.size() < StyleCheck::MaxRemarks)
            remarks.push_back(std::move(remark));
        else
            ++m_check.leftOut;
    }

    StyleCheck m_check;
};

} // namespace

std::vector<CurvePlace> CurveRemark::Curves() const
{
    std::vector<CurvePlace> curves{curve};
    if (other)
        curves.push_back(*other);
    return curves;
}

StyleCheck CheckStyles(const Plot& plot)
{
    Inspection inspection;
    for (std::size_t i = 0; i < plot.panels.size(); ++i)
        inspection.CheckPanel(i, plot.panels[i].curves);
    return inspection.Finish();
}

} // namespace atlashost
