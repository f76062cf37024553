// The dialogs that the gallery takes pictures of.
#pragma once

#include "platform/window/CDialog.h"
#include "platform/window/CImageList.h"
#include "translator/listview/CIListViewEdit.h"
#include "translator/listview/CIResizableDialog.h"

// A list with a cell of every kind, once plain and once in every state that is drawn differently.
class ListSample : public CDialog {
  public:
    ListSample();
    ~ListSample() override;

    ListView::CIListViewEdit list;

  protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;

  private:
    void AddRow(const TQString& name, int32_t kind, const TQStringList& values);
};

// Rows of that sample.
enum SampleRow : int32_t {
    kTitleRow,
    kTextRow,
    kDigitsRow,
    kOptionsRow,
    kProposalsRow,
    kColourRow,
    kSeparatorRow,
    kFileRow,
    kPathRow,
    kActionRow,
    kReadOnlyRow,
    kSampleRows
};

// One of every control, in a frame that can be sized; the list takes the room.
class ResizableSample : public CIResizableDialog {
  public:
    ResizableSample();
    ~ResizableSample() override;

  protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnSize(UINT type, int cx, int cy);
    DECLARE_MESSAGE_MAP()

  private:
    ListView::CIListViewEdit list;
};
