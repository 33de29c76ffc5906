#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "toolkit/ScrollView.h"
#include "toolkit/TableViewCell.h"

namespace toolkit {

class TableView;

/// A row of a table, or with row -1 the header of a section.
struct IndexPath {
  int section = 0;
  int row = 0;

  friend bool operator==(const IndexPath&, const IndexPath&) = default;
};

/// What a table shows, and who is told what its user does. Held weakly by the table: the
/// implementer is a WeakTarget. It may reload or destroy the table from within any call that begins
/// with "did".
class TableViewSource {
 public:
  virtual ~TableViewSource() = default;

  virtual int numberOfSections(TableView&) { return 1; }
  virtual int numberOfRowsInSection(TableView& table, int section) = 0;
  /// A cell from `table.dequeueReusableCell`, filled for this row.
  virtual TableViewCell& cellForRowAt(TableView& table, IndexPath row) = 0;
  /// Empty for no title.
  virtual std::string titleForHeaderInSection(TableView&, int /*section*/) { return {}; }
  /// Null for the table's own header, a label with the title.
  virtual std::unique_ptr<View> viewForHeaderInSection(TableView&, int /*section*/) {
    return nullptr;
  }
  /// In points; 0 for no header.
  virtual double heightForHeaderInSection(TableView&, int /*section*/) { return 0; }
  /// In points; one height for all rows of a section, so that a table of any length is measured at
  /// once.
  virtual double heightForRowsInSection(TableView& table, int section) = 0;

  /// The user has chosen a row: by a tap, or by Return on the row that the arrow keys have reached.
  virtual void didSelectRowAt(TableView&, IndexPath) {}
  virtual void didDeselectRowAt(TableView&, IndexPath) {}
  enum class Mark {
    /// A row was chosen alone: marks end.
    none,
    /// Control and a click, or a finger that stays: this row more, or less.
    toggle,
    /// Shift and a click or an arrow key: all from the last one to this.
    extend,
    /// Control and A: every row.
    all,
  };
  /// The user marks rows, for what is done to several of them. False where rows are not marked.
  virtual bool didMarkRowAt(TableView&, IndexPath, Mark) { return false; }
  virtual bool isRowMarked(TableView&, IndexPath) { return false; }
  /// The arrow keys have reached a row.
  virtual void didFocusRowAt(TableView&, IndexPath) {}
};

/// Rows in sections, of which only those in sight have a cell. Headers stay at the top while their
/// section scrolls by. Up, Down, Page Up, Page Down, Home and End move through the rows, Return
/// chooses. With Shift or Control, or a finger that stays, rows are marked, which their source keeps.
/// User-interface thread only.
class TableView : public ScrollView {
 public:
  enum class ScrollPosition {
    none,
    /// A row in sight stays where it is, another one comes to the middle.
    intoSight,
    middle,
  };

  TableView();
  ~TableView() override;

  void setSource(platform::Weak<TableViewSource> source);

  /// Asks the source for everything anew with the next frame; the selection goes, the place stays
  /// as far as the rows reach. What selects or scrolls meanwhile counts with the new rows.
  void reloadData();
  /// Asks for the cells in sight anew: the rows are the same, what they show is not.
  void refillCells();
  /// Rows and headers as of the last reload.
  int numberOfSections() const;
  int numberOfRows(int section) const;

  /// A cell that is out of sight, else a new one. All cells of a table are of one class.
  template <class Cell>
  Cell& dequeueReusableCell() {
    if (spare_.empty()) spare_.push_back(std::make_unique<Cell>());
    return static_cast<Cell&>(*spare_.back());
  }

  std::optional<IndexPath> indexPathForSelectedRow() const { return selected_; }
  /// Tells nobody. A row that is not there selects none.
  void selectRow(std::optional<IndexPath> row, ScrollPosition position = ScrollPosition::none);
  void deselectRow(IndexPath row);
  void scrollToRow(IndexPath row, ScrollPosition position);
  /// The shortest way, in place of what was asked for before.
  void scrollRectToVisible(const platform::Rect& rect);
  /// As if the user had tapped it: tells the source.
  void chooseRow(IndexPath row);
  /// The row that the arrow keys have reached, or none.
  std::optional<IndexPath> focusedRow() const { return focused_; }
  void moveFocus(int rows);
  /// As if the arrow keys had come to this row; one that is not there changes nothing.
  void focusRow(IndexPath row);

  /// In the content's coordinates.
  platform::Rect rectForRow(IndexPath row) const;
  /// The row at a place in the content's coordinates; none on a header or beyond the last row.
  std::optional<IndexPath> rowAt(double y) const;
  /// Every cell in sight, for when rows are the same and show something else.
  void forEachCell(const std::function<void(IndexPath, TableViewCell&)>& show);
  /// The cell of a row that is in sight, else null.
  TableViewCell* cellForRow(IndexPath row) const;
  /// Cells that exist, in sight or kept for later.
  std::size_t cellCount() const { return shown_.size() + spare_.size(); }

  /// Of the headers that the table makes itself.
  void setHeaderStyle(platform::Color background, platform::Color text, const platform::Font& font);

  bool canBecomeFirstResponder() const override { return true; }
  void firstResponderChanged() override;
  bool keyPressed(const platform::KeyEvent& event) override;
  void touchBegan(const Touch& touch) override;
  void draw(const platform::Rect& rect) override;

 protected:
  void pressed(const std::optional<platform::Point>& place) override;
  void tapped(const Touch& touch) override;
  double wheelStep() const override;

 private:
  struct Section {
    int rows = 0;
    /// In the content's coordinates.
    double top = 0;
    double headerHeight = 0;
    double rowHeight = 0;
    double bottom() const { return top + headerHeight + rows * rowHeight; }
    double rowTop(int row) const { return top + headerHeight + row * rowHeight; }
  };
  struct Shown {
    IndexPath row;
    std::unique_ptr<TableViewCell> cell;
  };
  struct Header {
    int section;
    std::unique_ptr<View> view;
  };

  /// Asks for sections and rows, when that is due.
  void measure();
  bool isRow(IndexPath row) const;
  /// Counted from the first row of the first section on.
  int flatIndex(IndexPath row) const;
  std::optional<IndexPath> rowOfFlatIndex(int index) const;
  int totalRows() const;
  void retire(Shown& shown);
  void showRows();
  void showHeaders();
  std::unique_ptr<View> makeHeader(int section);
  bool isOnHeader(platform::Point place) const;
  void centre(IndexPath row);
  /// Whole, and below the header that floats.
  bool isInSight(IndexPath row, double height) const;
  void setFocusedRow(std::optional<IndexPath> row);
  /// What a key does that goes through the rows; false for any other.
  bool movesFocus(platform::Key key);
  void updateCellStates();
  /// A finger has stayed on a row.
  void rested(IndexPath row);
  /// False where rows are not marked.
  bool mark(IndexPath row, TableViewSource::Mark how);

  platform::Weak<TableViewSource> source_;
  std::vector<Section> sections_;
  std::vector<Shown> shown_;
  std::vector<std::unique_ptr<TableViewCell>> spare_;
  std::vector<Header> headers_;
  View rowViews_;
  View headerViews_;
  std::optional<IndexPath> selected_, focused_, pressed_;
  /// Was brought into sight before the table had its present size.
  std::optional<IndexPath> toCentre_;
  ScrollPosition toCentreBy_ = ScrollPosition::middle;
  /// Due when a finger has stayed on the pressed row; off once it has marked it.
  foundation::Timer longPress_;
  bool hasMarked_ = false;
  double measuredHeight_ = -1;
  bool needsMeasure_ = true;
  platform::Color headerBackground_ = platform::Color::black();
  platform::Color headerText_ = platform::Color::white();
  platform::Font headerFont_;
};

}  // namespace toolkit
