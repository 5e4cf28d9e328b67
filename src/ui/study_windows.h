#pragma once

#include "session/ui_port.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>

#include <functional>
#include <string>
#include <vector>

namespace tavlon12 {

/// The window of the table of values: it follows the search, and afterwards the table can be sorted in it.
class PlyValueWindow : public QDialog {
public:
    PlyValueWindow(QWidget* parent, const std::function<void()>& cancel);

    void Open(const std::vector<std::string>& orders);
    void ShowTable(const std::function<std::string(Long order)>& table);

    QLabel* State;
    QLabel* SearchLine;
    QProgressBar* Progress;

    /// Esc or the title bar: what the window works on ends too.
    void reject() override;

private:
    void PrepareControls();
    void LayOut();
    void Sort(int order);

    QComboBox* Combo1;
    QPlainTextEdit* Text1;
    QPushButton* Command1;                  ///< closes the window
    QPushButton* Command2;                  ///< cancels the search
    std::function<std::string(Long)> Table; ///< empty until the table is complete
};

/// The window of the combinations that have been found.
class ProblemWindow : public QDialog {
public:
    explicit ProblemWindow(QWidget* parent);
    void Clear();
    void Open(const std::string& text);

private:
    QPlainTextEdit* Text1;
};

} // namespace tavlon12
