// The pages of a project, as the host shows them to the user.
#pragma once

#include <string>
#include <vector>

class OdDbDatabase;

namespace host {

struct Page {
    std::u16string name;         // of the layer
    std::u16string description;  // empty for none
};

// A page is a layer. Never pages: "0" and, in any case, "tq_freeze".
bool IsPageLayer(std::u16string_view layer);

// Without the layers PAGE$SELO, PAGE$FORMATO and PAGE$DE of the pages that are there: commands take
// them along with their page.
std::vector<Page> WholePages(const std::vector<Page>& pages);

// What the host has read of the pages of one drawing, until it is asked to read again.
class PageTable {
  public:
    const std::vector<Page>& Pages() const { return pages; }

    // The pages in the order of the layer table, with their descriptions.
    void Refresh(OdDbDatabase* drawing);
    // The descriptions alone. The description of a page is that of its layer; where the layer has
    // none, the first title that the block references on the page's layer for the title block
    // (PAGE$SELO) or on the page itself carry in an attribute.
    void RefreshDescriptions(OdDbDatabase* drawing);

  private:
    std::vector<Page> pages;
};

}  // namespace host
