// The same drawings painted by the drawing add-on of ezdxf: the same extents, the same texts at the
// same places.
#include <QFileInfo>
#include <algorithm>
#include <cmath>
#include <iostream>
#include <map>
#include <unordered_map>

#include "platform/drawing/OdError.h"
#include "tests/painter/Support.h"

namespace {

// Drawings of which ezdxf makes something else, and why that is no fault here.
const std::map<std::string, const char*> kOtherwise = {
    {"arbaev__entities.dxf", "a closed spline of ezdxf leaves the polygon of its control points"},
    {"mozman__recover01.dxf", "has several ENTITIES sections, of which one is read"},
    {"mozman__caret_encoding.dxf", "carets ahead of other characters than @ to _ stay"},
    {"mozman__mtext_columns_R2000.dxf", "columns are broken where the drawing stored them"},
    {"mozman__mtext_columns_R2018.dxf", "columns as in the R2000 drawing of the same texts"},
    {"mozman__mtext_framed_columns.dxf", "columns that xdata tells are texts of their own"},
    {"mozman__mtext_complex_inline_codes.dxf", "widths behind a change of height differ"},
};

using ByText = std::unordered_map<std::u16string, std::vector<const Word*>>;

double Apart(const Word& a, const Word& b) { return std::hypot(a.x - b.x, a.y - b.y); }

// The nearest of our words with the same characters; null for none.
const Word* Nearest(const ByText& ours, const Word& word) {
    const auto found = ours.find(word.characters);
    if (found == ours.end()) return nullptr;
    return *std::min_element(
        found->second.begin(), found->second.end(),
        [&](const Word* a, const Word* b) { return Apart(*a, word) < Apart(*b, word); });
}

std::string Told(const Word& word, const Word* ours) {
    const auto place = [](const Word& at) {
        return std::to_string(at.x) + ", " + std::to_string(at.y) + ", height " +
               std::to_string(at.height);
    };
    return "\n  \"" + QString::fromStdU16String(word.characters).toStdString() + "\" at " +
           place(word) + (ours ? "; ours at " + place(*ours) : "; not ours");
}

// Each of their words must be one of ours, within its height.
void ExpectSameWords(const Painted& ours, const Painted& theirs) {
    ByText byText;
    for (const Word& word : ours.words) byText[word.characters].push_back(&word);
    size_t missing = 0;
    std::string told;
    for (const Word& word : theirs.words) {
        const Word* same = Nearest(byText, word);
        const bool found = same && std::abs(same->height / word.height - 1) < 0.05 &&
                           Apart(*same, word) <= word.height;
        if (!found && ++missing <= 8) told += Told(word, same);
    }
    EXPECT_EQ(missing, 0U) << told;
}

void ExpectSameExtents(const painter::Bounds& ours, const painter::Bounds& theirs) {
    if (theirs.IsEmpty()) return;  // nothing but texts, or of a kind that it does not paint
    ASSERT_FALSE(ours.IsEmpty());
    const double slack = 0.01 * std::max({theirs.Width(), theirs.Height(), 1e-6});
    EXPECT_NEAR(ours.left, theirs.left, slack);
    EXPECT_NEAR(ours.bottom, theirs.bottom, slack);
    EXPECT_NEAR(ours.right, theirs.right, slack);
    EXPECT_NEAR(ours.top, theirs.top, slack);
}

}  // namespace

TEST(AgainstEzdxf, SameTextsAndExtents) {
    size_t compared = 0, words = 0;
    for (const QString& path : Drawings()) {
        SCOPED_TRACE(QFileInfo(path).fileName().toStdString());
        if (kOtherwise.contains(QFileInfo(path).fileName().toStdString())) continue;
        const auto theirs = TheirsOf(path);
        if (!theirs) continue;
        std::optional<painter::DisplayList> list;
        try {
            list = ListOfFile(path);
        } catch (const OdError&) {
            continue;  // a drawing that only ezdxf mends
        }
        const Painted ours = OursOf(*list);
        ExpectSameExtents(ours.extents, theirs->extents);
        ExpectSameWords(ours, *theirs);
        ++compared;
        words += theirs->words.size();
    }
    std::cout << compared << " drawings, " << words << " words compared" << std::endl;
    EXPECT_GE(compared, 2U);
    EXPECT_GE(words, 1000U);
}
