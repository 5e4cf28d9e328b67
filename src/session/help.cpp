#include "session/help.h"

#include "session/program_files.h"
#include "session/screen.h"

namespace tavlon12 {

namespace {

constexpr const char* kWebPage = "https://tavlon12.example";
constexpr const char* kMailAddress = "tavlon12team@tavlon12.example";
/// A link of a definition that leads to our own pages is not shown.
constexpr std::string_view kOwnPages = "tavlon12team";

std::string HelpText(const VariantState& variant) {
    if (variant.Texts.VariantHelp.empty()) return "No help available";
    return variant.VariantName + "\r\n\r\n" + variant.Texts.VariantHelp;
}

std::string ShownLink(const std::string& link) {
    return LowerCase(link).find(kOwnPages) == std::string::npos ? link : "";
}

void OpenRules(Session& session, const std::string& link) {
    if (!link.empty()) {
        OpenLink(session, link);
        return;
    }
    const VariantState& variant = session.Variant;
    const RulesText text{" Rules for " + variant.VariantName, HelpText(variant), ShownLink(variant.Texts.HelpLink)};
    ShowWindow(session, [&] {
        session.Port.Dialogs.ShowRules(text, [&](const std::string& shown) { OpenLink(session, shown); });
    });
    session.Input.MovablesBoxed = false;
}

} // namespace

void ShowDetails(Session& session) {
    if (session.Busy) return;
    PdnTags& tags = session.Pdn;
    session.Port.Dialogs.EditDetails({tags.Event, tags.Site, tags.Date, tags.Black, tags.White},
                                     [&](const DetailsForm& form) {
                                         tags.Event = form.Event;
                                         tags.Site = form.Site;
                                         tags.Date = form.Date;
                                         tags.Black = form.Black;
                                         tags.White = form.White;
                                     });
}

void ShowQuickRules(Session& session) {
    OpenRules(session, session.Variant.Texts.QuickHelpLink);
}

void ShowRules(Session& session) {
    OpenRules(session, session.Variant.Texts.HelpLink);
}

void ShowAbout(Session& session) {
    const AboutText text{"Tavlon12",
                         "Play 80+ Checkers Variants",
                         std::string("Version ").append(kProgramVersion),
                         kMakersNotice,
                         kWebPage,
                         kMailAddress};
    const OpenAddress open = [&](const std::string& address) {
        session.Port.Files.OpenDocument(address == kMailAddress ? "mailto:" + address : address);
    };
    ShowWindow(session, [&] { session.Port.Dialogs.ShowAbout(text, open); });
    session.Input.MovablesBoxed = false;
}

} // namespace tavlon12
