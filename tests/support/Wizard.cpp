#include "tests/support/Wizard.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <sstream>

#include "tests/model/LogEntries.h"

namespace kv {
namespace {

template <class T>
T takeFirst(std::deque<T>& answers, T whenNone) {
    if (answers.empty()) return whenNone;
    T answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

constexpr std::array kEveryProperty{
    Property::Box,     Property::Caption,        Property::Text,
    Property::Value,   Property::Enabled,        Property::Default,
    Property::Visible, Property::AccessibleName, Property::AccessibleValue};

const char* nameOf(Property property) {
    switch (property) {
        case Property::Box: return "Box";
        case Property::Caption: return "Caption";
        case Property::Text: return "Text";
        case Property::Value: return "Value";
        case Property::Enabled: return "Enabled";
        case Property::Default: return "Default";
        case Property::Visible: return "Visible";
        case Property::Focus: return "Focus";
        case Property::AccessibleName: return "AccessibleName";
        case Property::AccessibleValue: return "AccessibleValue";
    }
    return "?";
}

std::string yesNo(bool value) { return value ? "yes" : "no"; }

std::string boxText(const Box& box) {
    std::ostringstream text;
    text << box.left << ',' << box.top << ',' << box.width << ',' << box.height;
    return text.str();
}

// The control as one of its kind, or none; the Windows build knows types by their kind only.
template <class Type>
const Type* as(ControlKind kind, const Control& control) {
    return control.kind() == kind ? static_cast<const Type*>(&control) : nullptr;
}

std::string valueOf(const Control& control, Property property) {
    const auto* textBox = as<TextBox>(ControlKind::TextBox, control);
    const auto* option = as<OptionButton>(ControlKind::OptionButton, control);
    const auto* button = as<CommandButton>(ControlKind::CommandButton, control);
    switch (property) {
        case Property::Box: return boxText(control.box());
        case Property::Caption: return control.caption();
        case Property::Text: return textBox ? textBox->text() : "";
        case Property::Value: return option ? yesNo(option->value()) : "";
        case Property::Enabled: return yesNo(control.enabled());
        case Property::Default: return button ? yesNo(button->isDefault()) : "";
        case Property::Visible: return yesNo(control.visible());
        case Property::AccessibleName: return control.accessibleName();
        case Property::AccessibleValue: return control.accessibleValue();
        case Property::Focus: return "";
    }
    return "";
}

const std::array<SampleServer, 3>& sampleServers() {
    static const std::array<SampleServer, 3> servers{{
        {Server::Apache, "C:\\Program Files\\Apache Group\\Apache2\\htdocs",
         "C:\\Program Files\\Apache Group\\Apache2\\cgi-bin", &frmWebConfig::optInstalledApache,
         &frmWebConfig::txtFolderHomeApache, &frmWebConfig::txtFolderScriptsApache, 7},
        {Server::IIS, "C:\\Inetpub\\wwwroot", "C:\\Inetpub\\scripts",
         &frmWebConfig::optInstalledIIS, &frmWebConfig::txtFolderHomeIIS,
         &frmWebConfig::txtFolderScriptsIIS, 8},
        {Server::Other, "C:\\Other Server\\docs", "C:\\Other Server\\cgi",
         &frmWebConfig::optInstalledOther, &frmWebConfig::txtFolderHomeOthers,
         &frmWebConfig::txtFolderScriptsOthers, 9},
    }};
    return servers;
}

Lines logOn(const TestDisk& disk) {
    return disk.exists(kSampleLog) ? logEntries(disk.read(kSampleLog)) : Lines{};
}

}  // namespace

int FakeShell::openDocument(const std::string& document, const std::string& operation,
                            int showMode) {
    opened.push_back({document, operation, showMode});
    return result;
}

std::string FakeShell::browseForFolder(const std::string& title, unsigned flags) {
    browsed.push_back({title, flags});
    return takeFirst(folders, std::string());
}

void FakeMessageBoxes::information(const std::string& text) { informations.push_back(text); }

bool FakeMessageBoxes::yesNoDefaultNo(const std::string& text) {
    questions.push_back(text);
    return takeFirst(answers, false);
}

void RecordingObserver::watch(Form& form) {
    for (const Control* control : form.controls())
        for (const Property property : kEveryProperty)
            known_[{control, property}] = valueOf(*control, property);
    form.observe(this);
}

void RecordingObserver::onChanged(Control& control, Property property) {
    const std::string value = valueOf(control, property);
    std::string& known = known_[{&control, property}];
    if (property != Property::Focus && known == value) return;
    known = value;
    changes.push_back(std::string(control.name()) + ' ' + nameOf(property) +
                      (value.empty() ? "" : " ") + value);
}

Lines RecordingObserver::onScreen() const {
    Lines shown = changes;
    std::erase_if(shown, [](const std::string& change) {
        return change.ends_with(" Focus") || change.find(" Accessible") != std::string::npos;
    });
    return shown;
}

std::string ServerName::operator()(const testing::TestParamInfo<Server>& info) const {
    return nameOf(info.param);
}

const SampleServer& sampleServer(Server kind) {
    return *std::ranges::find(sampleServers(), kind, &SampleServer::kind);
}

void bringIntoReach(Control& control) {
    for (Control* c = &control; c != nullptr; c = c->parent()) {
        c->setEnabled(true);
        c->setVisible(true);
    }
}

std::string sampleContent(std::string_view relativePath) {
    return "what " + std::string(relativePath) + " holds";
}

SampleDisk::SampleDisk() {
    const std::string product = kSampleProduct;
    const auto put = [&](const std::string& file) {
        disk.write(product + '\\' + file, sampleContent(file));
    };
    for (const Copy& copy : copies({})) put(copy.from.substr(product.size() + 1));
    for (const Backup& file : kBackups) put(file.source);
    for (const char* page : {kHelpEntryPage, kHelpExitPage}) put(page);
    disk.write(kSampleInstallationFile, freshSettings());
    disk.makeFolder(product + "\\cfg\\original");
    disk.makeFolder(product + "\\log");
    for (const SampleServer& server : sampleServers()) {
        disk.makeFolder(server.home);
        if (server.kind != Server::IIS) disk.makeFolder(server.scripts);
    }
}

Lines SampleDisk::log() const { return logOn(disk); }

Workbench::Workbench() {
    state.AppPath = kSamplePlace;
    state.ProductFolder = kSampleProduct;
    disk.makeFolder("C:\\Korvane\\log");
    log.cmnLogSetFolder("C:\\Korvane\\log");
}

Lines Workbench::logEntries() {
    files.clearFaults();
    log.cmnLogFlush();
    return logOn(disk);
}

Wizard::Wizard(SampleDisk& sampleDisk, const ProgramPlace& place)
    : disk(sampleDisk), program(form, place, sampleDisk.files, clock, shell, messages) {
    observer.watch(form);
}

std::vector<int> Wizard::visiblePanels() const {
    std::vector<int> numbers;
    for (std::size_t n = 0; n < form.picPanel.size(); ++n)
        if (form.picPanel[n].visible()) numbers.push_back(static_cast<int>(n));
    return numbers;
}

int Wizard::currentPanel() const {
    const std::vector<int> panels = visiblePanels();
    return panels.size() == 1 ? panels.front() : -1;
}

std::vector<int> Wizard::history() const {
    const WizardState& state = program.state();
    const auto begin = state.PanelHistory.begin();
    return {begin, begin + state.PanelHistoryIndex + 1};
}

void Wizard::chooseServer(Server server) {
    (form.*sampleServer(server).installed).click();
    form.cmdNext.click();
}

void Wizard::chooseUrlStyle(UrlStyle style) {
    (style == UrlStyle::SiteRoot ? form.optUrlDefault : form.optUrlKv).click();
    form.cmdNext.click();
}

void Wizard::typeFolders(Server server) {
    const SampleServer& sample = sampleServer(server);
    (form.*sample.homeBox).typed(sample.home);
    (form.*sample.scriptsBox).typed(sample.scripts);
    form.cmdNext.click();
}

void Wizard::describeSite(Server server, UrlStyle style) {
    chooseServer(server);
    chooseUrlStyle(style);
    typeFolders(server);
    form.cmdNext.click();
}

void Wizard::goToFolders(Server server, UrlStyle style) {
    form.cmdNext.click();
    chooseServer(server);
    chooseUrlStyle(style);
}

void Wizard::goToWebsite(Server server, UrlStyle style) {
    goToFolders(server, style);
    typeFolders(server);
}

void Wizard::goToConfirmation(Server server, UrlStyle style) {
    form.cmdNext.click();
    describeSite(server, style);
}

void Wizard::install(Server server, UrlStyle style) {
    goToConfirmation(server, style);
    form.cmdNext.click();
}

Lines Wizard::closeAndReadLog() {
    form.close();
    return disk.log();
}

}  // namespace kv
