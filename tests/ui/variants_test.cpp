#include "support.h"

#include "support/session_fixture.h"
#include "ui/dialogs/variants_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace tavlon12;
using namespace tavlon12::support;

namespace {

bool IsOn(const QDialog& dialog, const QString& name) {
    return Find<QCheckBox>(dialog, name).isChecked();
}

QColor GroundOf(const QDialog& dialog, const QString& name) {
    return Find(dialog, name).palette().color(QPalette::Base);
}

/// What a control of the dialog holds, as its rule is written in files.
std::string Held(const QDialog& dialog, const VariantControl& control) {
    const QString name = QLatin1String(control.Name);
    if (control.Label == nullptr) return IsOn(dialog, name) ? "1" : "0";
    if (name == "Text6" && IsOn(dialog, "Check30")) return "-1";
    return std::to_string(Find<QLineEdit>(dialog, name).text().toInt());
}

/// Opens the Variants dialog from the toolbar; `use` must close it.
bool UseDialog(GameWindow& game, const std::function<void(QDialog&)>& use) {
    const DialogUser user("dlgVariants", use);
    game.ClickButton("New Variant");
    return user.Used;
}

} // namespace

class VariantsTest : public QObject {
    Q_OBJECT

private slots:
    void EveryControlWritesItsRuleAndTheGamePlaysByIt() {
        GameWindow game;
        Random random(3);
        for (int round = 0; round < 6; ++round) {
            std::vector<std::pair<const VariantControl*, std::string>> held;
            const auto use = [&](QDialog& dialog) {
                for (const VariantControl& control : VariantControls()) {
                    const RuleKey& key = RuleKeyOf(control.Rule);
                    QVERIFY2(Held(dialog, control) == RuleValueText(game.Pos->Rules, key), key.Name.data());
                }
                for (const VariantControl& control : VariantControls()) {
                    QWidget& widget = Find(dialog, QLatin1String(control.Name));
                    // Random men and moves would be played before the game stands.
                    const bool draws = control.Rule == RuleMember(&RuleSet::DoMoves) ||
                                       control.Rule == RuleMember(&RuleSet::RemoveMen) ||
                                       control.Rule == RuleMember(&RuleSet::RndColor);
                    if (!widget.isEnabled() || draws || DrawOneIn(random, 2)) continue;
                    if (control.Label == nullptr) {
                        ClickOn(widget);
                    } else {
                        Type(dialog, QLatin1String(control.Name), QString::number(Draw(random, 200)));
                    }
                }
                if (Find(dialog, "Check30").isEnabled() && DrawOneIn(random, 2)) ClickOn(dialog, "Check30");
                for (const VariantControl& control : VariantControls())
                    held.emplace_back(&control, Held(dialog, control));
                QTest::keyClick(&dialog, Qt::Key_Return);
                QVERIFY(!dialog.isVisible());
            };
            QVERIFY(UseDialog(game, use));
            for (const auto& [control, text] : held) {
                const RuleKey& key = RuleKeyOf(control->Rule);
                QVERIFY2(RuleValueText(game.Pos->Rules, key) == text, key.Name.data());
            }
        }
    }

    void GridsWriteTheSquaresAndTheSteps() {
        GameWindow game;
        QVERIFY(UseDialog(game, [](QDialog& dialog) {
            Type(dialog, "Text1(19)", "A7");
            Type(dialog, "Text1(20)", "");
            for (int i = 0; i < 8; ++i) Type(dialog, QStringLiteral("Text2(%1)").arg(i), i < 4 ? "NN" : "NE;NW");
            ClickOn(dialog, "OKButton");
        }));
        QCOMPARE(game.Pos->Rules.PromoW[19], SquareOf("a7"));
        QCOMPARE(game.Pos->Rules.PromoB[0], kUnusedSlot);
        QCOMPARE(game.Pos->Rules.BlackKingMovement, "NN NE;NW");
        QVERIFY(game.Window->Panel.Labels[8]->text().endsWith(" (M)"));
        game.Drag("e5", "e7");
        QCOMPARE(game.Cell("e7"), kMan);
    }

    void BoxesGreyWhatDependsOnThem() {
        struct {
            const char* Box;
            const char* OpenWhenOn;
            const char* OpenWhenOff = "";
        } const rows[] = {
            {"Check1", "Check7", "Check2"},
            {"Check6", "", "Check16"},
            {"Check16", "", "Check6"},
            {"Check10", "Check12"},
            {"Check11", "Check14 Check17"},
            {"Check20", "Label11 Text3"},
            {"Check21", "Label12 Text4"},
            {"Check26", "Label17 Text5"},
            {"Check28", "", "Check4"},
            {"Check29", "Check30 Text6 Label18"},
            {"Check31", "Label19 Text7"},
            {"Check33", "Label21 Label22 Label23 Label24 Label25 Text9 Text10 Text11 Text12 Text13"},
        };
        GameWindow game;
        QVERIFY(UseDialog(game, [&](QDialog& dialog) {
            const auto check = [&](const char* names, bool open) {
                for (const QString& name : QString(names).split(' ', Qt::SkipEmptyParts))
                    QVERIFY2(Find(dialog, name).isEnabled() == open, qPrintable(name));
            };
            for (const auto& row : rows) {
                for (int click = 0; click < 2; ++click) {
                    ClickOn(dialog, row.Box);
                    check(row.OpenWhenOn, IsOn(dialog, row.Box));
                    check(row.OpenWhenOff, !IsOn(dialog, row.Box));
                }
            }
            ClickOn(dialog, "Check29");
            ClickOn(dialog, "Check30");
            check("Text6 Label18", false);
            ClickOn(dialog, "Check30");
            check("Text6 Label18", true);

            for (const char* name : {"Check1", "Check2", "Check1", "Check7", "Check1", "Check12", "Check10"})
                ClickOn(dialog, name);
            QVERIFY(!IsOn(dialog, "Check7"));
            QVERIFY(!IsOn(dialog, "Check12"));
            ClickOn(dialog, "Check1");
            QVERIFY2(IsOn(dialog, "Check2"), "the captures of the most pieces go on to their end");
            dialog.reject();
        }));
    }

    void AnIllegalEntryIsMarkedUntilItIsClicked() {
        GameWindow game;
        QVERIFY(UseDialog(game, [&](QDialog& dialog) {
            game.Boxes.BeforeAnswer = [&] { QCOMPARE(GroundOf(dialog, "Text1(21)"), QColor(Qt::black)); };
            Type(dialog, "Text1(21)", "b1");
            QTest::keyClick(&dialog, Qt::Key_Return);
            QCOMPARE(game.Boxes.Seen, std::vector{ErrorBox("Illegal entry!")});
            QVERIFY(dialog.isVisible());
            ClickOn(dialog, "Text1(21)");
            QCOMPARE(GroundOf(dialog, "Text1(21)"), QColor(Qt::white));
            Type(dialog, "Text1(21)", "c1");
            Type(dialog, "Text2(5)", "NX");
            game.Boxes.BeforeAnswer = [&] { QCOMPARE(GroundOf(dialog, "Text2(5)"), QColor(Qt::black)); };
            ClickOn(dialog, "Variantsapply");
            QCOMPARE(game.Boxes.Seen.size(), 2u);
            QTest::keyClick(&dialog, Qt::Key_Escape);
            QVERIFY(!dialog.isVisible());
        }));
    }

    void ApplyAndCancelKeepWhatTheyTook() {
        GameWindow game;
        QVERIFY(UseDialog(game, [&](QDialog& dialog) {
            ClickOn(dialog, "Check29");
            ClickOn(dialog, "Check5");
            ClickOn(dialog, "Variantsapply");
            QVERIFY(dialog.isVisible());
            ClickOn(dialog, "Check3"); // at once
            ClickOn(dialog, "Check23");
            QCOMPARE(Find<QLineEdit>(dialog, "Text1(0)").text(), "ab");
            ClickOn(dialog, "CancelButton");
        }));
        const RuleSet& rules = game.Pos->Rules;
        QCOMPARE(int{rules.AntiMode}, 1);
        QCOMPARE(rules.JumpFriend, 0);
        QCOMPARE(int{rules.PiecesOnBlack}, 0);
        QCOMPARE(int{rules.ManKing}, 0);
        QCOMPARE(game.Cell("b1"), kMan);
    }

    void VariantsArePickedFromTheirFolder() {
        GameWindow game;
        ProgramFolder definitions;
        definitions.WriteVariant("All", "PiecesOnBlack=2\r\nHelpLink=https://rules.example\r\n");
        const std::filesystem::path own = game.Folder.Path / "variants" / "uservariants";
        WriteFile(own / "Broken.ini", "Title\r\nMulJumps=-1\r\nEND\r\n");
        std::string zoo = ReadFile(definitions.Path / "variants" / "All.ini");
        WriteFile(own / "Zoo.ini", zoo.insert(zoo.find("\r\nHelp=") + 7, "Zoo:"));
        std::string opened;
        game.Game.Port.Files.OpenDocument = [&](const std::string& address) { opened = address; };
        QVERIFY(UseDialog(game, [&](QDialog& dialog) {
            QComboBox& list = Find<QComboBox>(dialog, "Combo1");
            QLabel& link = Find<QLabel>(dialog, "Label10");
            QCOMPARE(list.currentText(), "Canadian Checkers");
            ClickOn(link);
            ClickOn(dialog, "Option2");
            QCOMPARE(list.currentText(), "Zoo");
            QVERIFY(Find<QLabel>(dialog, "Help").text().startsWith("Zoo:The great"));
            QVERIFY(!(list.model()->flags(list.model()->index(0, 0)) & Qt::ItemIsEnabled));
            QVERIFY(list.itemData(0, Qt::ToolTipRole).toString().endsWith("line 2: value out of range: MulJumps=-1"));
            QTest::keyClick(&list, Qt::Key_Home);
            QCOMPARE(list.currentText(), "Zoo");
            QVERIFY(!Find(dialog, "Check3").isEnabled());
            ClickOn(dialog, "Random");
            QVERIFY(opened.empty());
            ClickOn(link);
            ClickOn(dialog, "Option1");
            QVERIFY(IsOn(dialog, "Check3"));
            QVERIFY(Find(dialog, "Check3").isEnabled());
            QTest::keyClick(&list, Qt::Key_End);
            const QString last = list.currentText();
            ClickOn(dialog, "Option1");
            QCOMPARE(list.currentText(), last);
            Type(dialog, "Text2(0)", "N;W;E");
            ClickOn(dialog, "Variantsapply");
            QVERIFY(!Find(dialog, "Check3").isEnabled());
            dialog.activateWindow();
            QTest::keyClick(dialog.windowHandle(), Qt::Key_U, Qt::AltModifier);
            QTRY_COMPARE(list.currentText(), "Zoo");
            ClickOn(dialog, "CancelButton");
        }));
        QCOMPARE(opened, "https://rules.example");
        QCOMPARE(game.Window->Panel.Labels[8]->text().left(3), "Zoo");
        QCOMPARE(game.Game.Settings.UseClassic, 0);
        QVERIFY(game.Boxes.Seen.empty());
    }
};

TAVLON12_TEST_MAIN(VariantsTest)
#include "variants_test.moc"
