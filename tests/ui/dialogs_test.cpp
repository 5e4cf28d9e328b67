#include "support.h"

#include "session/game_end.h"
#include "ui/dialogs/options_dialog.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>

#include <algorithm>
#include <iterator>
#include <set>

using namespace tavlon12;
using namespace tavlon12::support;

namespace {

using Kind = OptionControl::Kind;

bool UseDialog(GameWindow& game, Command command, const char* name, const std::function<void(QDialog&)>& use) {
    const DialogUser user(name, use);
    game.Window->Bar.ActionOf(command).trigger();
    return user.Used;
}

/// Opens the options from the toolbar; `use` must close them.
bool UseOptions(GameWindow& game, const std::function<void(QDialog&)>& use) {
    const DialogUser user("frmOptions", use);
    game.ClickButton("Options");
    return user.Used;
}

/// On each tab, which Ctrl+Tab opens in a circle.
void OnEachPage(QDialog& dialog, const std::function<void()>& act) {
    auto& tabs = Find<QTabWidget>(dialog, "tbsOptions");
    dialog.activateWindow();
    for (int page = 0; page < tabs.count(); ++page) {
        QCOMPARE(tabs.currentIndex(), page);
        act();
        QTest::keyClick(dialog.windowHandle(), Qt::Key_Tab, Qt::ControlModifier);
    }
    QCOMPARE(tabs.currentIndex(), 0);
}

/// Changes a control as a person does, and gives what its setting must be then.
std::string Change(QDialog& dialog, const OptionControl& control, Random& random) {
    const QString name = QLatin1String(control.Name);
    const SettingRow& row = SettingNamed(control.Setting);
    if (control.What == Kind::Slider) {
        auto& slider = Find<QSlider>(dialog, name);
        QTest::keyClick(&slider, DrawOneIn(random, 2) ? Qt::Key_Home : Qt::Key_End);
        for (Long steps = Draw(random, 4); steps > 0; --steps) QTest::keyClick(&slider, Qt::Key_Right);
        return std::to_string(control.Value != 0 ? control.Value - slider.value() : slider.value());
    }
    if (control.What == Kind::Field) {
        const Long number = row.Least + Draw(random, row.Most - row.Least + 1);
        const QString text = row.Most > 0 ? QString::number(number) : QStringLiteral("Ann %1").arg(number);
        Type(dialog, name, text);
        return text.toStdString();
    }
    if (control.What == Kind::List) {
        auto& list = Find<QComboBox>(dialog, name);
        QTest::keyClick(&list, DrawOneIn(random, 2) ? Qt::Key_Home : Qt::Key_End);
        return list.currentText().toStdString();
    }
    ClickOn(dialog, name);
    if (control.What == Kind::Box) return Find<QCheckBox>(dialog, name).isChecked() ? "1" : "0";
    return std::to_string(control.Value);
}

QString NameOf(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

/// What a person needs to find his way: names, tool tips, and access keys that are not given twice.
void CheckControls(const QDialog& dialog) {
    std::set<QString> keys;
    const auto noteKey = [&](const QString& text) {
        const auto at = text.indexOf(QLatin1Char('&'));
        if (at >= 0) QVERIFY2(keys.insert(text.mid(at + 1, 1).toLower()).second, qPrintable(text));
    };
    for (auto* widget : dialog.findChildren<QWidget*>()) {
        if (!widget->isVisible()) continue;
        if (auto* label = qobject_cast<QLabel*>(widget)) noteKey(label->text());
        if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().startsWith("qt_")) continue;
        if (auto* button = qobject_cast<QAbstractButton*>(widget)) noteKey(button->text());
        const bool control = qobject_cast<QAbstractButton*>(widget) || qobject_cast<QLineEdit*>(widget) ||
                             qobject_cast<QSlider*>(widget) || qobject_cast<QComboBox*>(widget);
        if (control)
            QVERIFY2(!NameOf(*widget).isEmpty() && !widget->toolTip().isEmpty(), qPrintable(widget->objectName()));
    }
    if (auto* tabs = dialog.findChild<QTabWidget*>())
        for (int page = 0; page < tabs->count(); ++page) noteKey(tabs->tabText(page));
}

} // namespace

class DialogsTest : public QObject {
    Q_OBJECT

private slots:
    void EveryControlOfTheOptionsWritesItsSetting() {
        GameWindow game;
        Random random(5);
        std::map<std::string_view, std::string> entered;
        for (int round = 0; round < 8; ++round) {
            QVERIFY(UseOptions(game, [&](QDialog& dialog) {
                OnEachPage(dialog, [&] {
                    for (const OptionControl& control : OptionControls()) {
                        const QWidget& widget = Find(dialog, QLatin1String(control.Name));
                        if (!widget.isVisible() || !widget.isEnabled() || DrawOneIn(random, 3)) continue;
                        entered[control.Setting] = Change(dialog, control, random);
                    }
                });
                QTest::keyClick(&dialog, Qt::Key_Return);
                QVERIFY(!dialog.isVisible());
            }));
            for (const auto& [name, text] : entered)
                QVERIFY2(SettingText(game.Game.Settings, SettingNamed(name)) == text, name.data());
        }
        for (const OptionControl& control : OptionControls()) {
            if (control.Setting != "MoveLimitCode") continue;
            game.Game.Settings.MoveLimitCode = static_cast<Byte>(control.Value);
            const Long halfMoves = 2 * std::stoi(control.Text);
            QVERIFY(!CheckMoveLimit(game.Game, halfMoves - 2) && CheckMoveLimit(game.Game, halfMoves - 1));
        }
        for (const SettingRow& row : SettingRows())
            QVERIFY2(row.Tip.empty() || entered.contains(row.Name), row.Name.data());
    }

    void BoxesGreyWhatDependsOnThem() {
        GameWindow game;
        const std::map<QString, QString> changedBy = {
            {"Check2", "Label1 Label10 Label11 Label12 Label14 Label2 Label3 Label4 Label8 Label9 Slider1 Slider4"},
            {"Check4", "Label13 Option2 Option3 Option4 Option5 Option6"},
            {"Check7", "Label15 Label16 Text2 Text3"},
            {"Check9", "Check12"},
            {"Check14", "Check15"}};
        QVERIFY(UseOptions(game, [&](QDialog& dialog) {
            const auto enabled = [&] {
                std::set<QString> names;
                for (const auto* widget : dialog.findChildren<QWidget*>())
                    if (widget->isEnabled() && widget->isVisible()) names.insert(widget->objectName());
                return names;
            };
            OnEachPage(dialog, [&] {
                CheckControls(dialog);
                for (const auto* box : dialog.findChildren<QCheckBox*>()) {
                    const QString name = box->objectName();
                    if (!box->isVisible() || name == "Check1") continue;
                    const bool on = box->isChecked();
                    const std::set<QString> before = enabled();
                    ClickOn(dialog, name);
                    const std::set<QString> after = enabled();
                    QStringList changed;
                    std::ranges::set_symmetric_difference(before, after, std::back_inserter(changed));
                    QCOMPARE(changed.join(' '), changedBy.contains(name) ? changedBy.at(name) : QString());
                    for (const QString& one : changed)
                        if (name != "Check2") QCOMPARE(after.contains(one), !on);
                }
            });
            QVERIFY(Find(dialog, "Slider1").isEnabled());
            for (const char* box : {"Check1", "Check2", "Check2"}) {
                ClickOn(dialog, box);
                QVERIFY(Find<QCheckBox>(dialog, box).isChecked());
                QVERIFY(Find<QCheckBox>(dialog, "Check1").isChecked() != Find<QCheckBox>(dialog, "Check2").isChecked());
            }
            QTest::keyClick(dialog.windowHandle(), Qt::Key_D, Qt::AltModifier);
            QTRY_VERIFY(Find<QCheckBox>(dialog, "Check1").isChecked()); // its slider was grey
            QTest::keyClick(&dialog, Qt::Key_Escape);
        }));
    }

    void ApplyStaysOpenAndCancelChangesNothing() {
        GameWindow game;
        game.Game.Rating = 1350;
        game.Game.Settings.MoveLimitCode = 9; // none of the choices
        QVERIFY(UseOptions(game, [&](QDialog& dialog) {
            Find<QTabWidget>(dialog, "tbsOptions").setCurrentIndex(2);
            Type(dialog, "Text2", "7");
            ClickOn(dialog, "cmdApply");
            QCOMPARE(Find<QLineEdit>(dialog, "Text2").text(), "6");
            Type(dialog, "Text2", "2");
            Find<QTabWidget>(dialog, "tbsOptions").setCurrentIndex(3);
            QCOMPARE(Find<QCheckBox>(dialog, "Check16").text(), "Use &Rating (1350)");
            ClickOn(dialog, "Command1");
            QCOMPARE(Find<QCheckBox>(dialog, "Check16").text(), "Use &Rating (1200)");
            ClickOn(dialog, "cmdCancel");
        }));
        QCOMPARE(game.Game.Settings.Search.Plys, 6);
        QCOMPARE(game.Game.Settings.MoveLimitCode, 1);
        QCOMPARE(game.Game.Rating, 1200);
    }

    void ASkinCountsAtOnceAndABrokenOneCannotBePicked() {
        GameWindow game;
        WriteFile(game.Folder.Path / "skins" / "Oak.ini", "dark_square=no.png\r\nEND\r\n");
        const QSize small = game.Window->size();
        game.Window->Panel.StatusPanels[0]->setText(QStringLiteral("White moves"));
        QVERIFY(UseOptions(game, [&](QDialog& dialog) {
            Find<QTabWidget>(dialog, "tbsOptions").setCurrentIndex(1);
            auto& list = Find<QComboBox>(dialog, "Combo1");
            const int broken = list.findText("Oak");
            QVERIFY(!(list.model()->flags(list.model()->index(broken, 0)) & Qt::ItemIsEnabled));
            QVERIFY(
                list.itemData(broken, Qt::ToolTipRole).toString().endsWith("line 1: the image cannot be read: no.png"));
            QTest::keyClick(&list, Qt::Key_Down);
            QCOMPARE(game.Game.Settings.SkinName, "Classic Medium");
            QCOMPARE(game.Window->size(), small);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        }));
        QCOMPARE(game.Status(), "White moves");
        QVERIFY(game.Window->width() > small.width());
        QVERIFY(game.Boxes.Seen.empty());
    }

    void DetailsKeepWhatWasApplied() {
        GameWindow game;
        game.Game.Pdn.Site = "caf\xE9";
        const auto use = [&](const char* close, const QString& text) {
            return UseDialog(game, Command::Details, "dlgDetails", [&](QDialog& dialog) {
                CheckControls(dialog);
                QCOMPARE(Find<QLineEdit>(dialog, "Text2").text(), QString::fromUtf8("caf\xC3\xA9"));
                for (int i = 1; i <= 5; ++i) Type(dialog, QStringLiteral("Text%1").arg(i), text + QString::number(i));
                ClickOn(dialog, close);
                if (dialog.isVisible()) {
                    Type(dialog, "Text1", "lost");
                    QTest::keyClick(&dialog, Qt::Key_Escape);
                }
                game.Game.Pdn.Site = "caf\xE9";
            });
        };
        for (const char* close : {"Command1", "OKButton", "CancelButton"}) {
            QVERIFY(use(close, QLatin1String(close)));
            const PdnTags& tags = game.Game.Pdn;
            const std::string kept = close == std::string_view("CancelButton") ? "OKButton" : close;
            QCOMPARE(tags.Event + tags.Date + tags.Black + tags.White,
                     kept + "1" + kept + "3" + kept + "4" + kept + "5");
        }
    }

    void RulesAndAboutOpenTheirLinks() {
        GameWindow game;
        std::vector<std::string> opened;
        game.Game.Port.Files.OpenDocument = [&](const std::string& address) { opened.push_back(address); };
        const auto click = [](QDialog& dialog, const char* name) {
            auto& link = Find<QLabel>(dialog, name);
            QTest::mouseMove(dialog.windowHandle(), QPoint(2, 2));
            QTest::mouseMove(dialog.windowHandle(), link.mapTo(&dialog, link.rect().center()));
            QCoreApplication::processEvents();
            QCOMPARE(link.font().underline(), !link.text().isEmpty());
            ClickOn(link);
            QVERIFY(!link.font().underline());
        };
        const std::filesystem::path document = game.Folder.Path / "docs" / "rules.html";
        WriteFile(document, "");
        game.Game.Variant.Texts = {"<b>&Jump</b>", "docs\\rules.html", ""};
        game.Key(Qt::Key_F1);
        for (const char* link : {"", "https://rules.example"}) {
            game.Game.Variant.Texts.HelpLink = link;
            QVERIFY(UseDialog(game, Command::QuickRules, "frmRules", [&](QDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), " Rules for Canadian Checkers");
                QCOMPARE(Find<QLabel>(dialog, "Label2").text(), "Canadian Checkers\r\n\r\n<b>&Jump</b>");
                click(dialog, "Label1");
                QTest::keyClick(&Find(dialog, "TextArea"), Qt::Key_Return);
            }));
        }
        QVERIFY(UseDialog(game, Command::mnu_Help_About, "frmAbout", [&](QDialog& dialog) {
            QCOMPARE(Find<QLabel>(dialog, "Label3").text(), "Version 1.13");
            QVERIFY(Find(dialog, "cmdOK").hasFocus());
            click(dialog, "Label9");
            click(dialog, "Label10");
            ClickOn(dialog, "cmdOK");
        }));
        QCOMPARE(opened,
                 (std::vector<std::string>{document.string(), "https://rules.example", "https://tavlon12.example",
                                           "mailto:tavlon12team@tavlon12.example"}));
    }
};

TAVLON12_TEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
