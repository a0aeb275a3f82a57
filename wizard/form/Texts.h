// The window's texts that are set while the program runs, in the order of their panels, and the
// addresses that stand in them. Spellings are as the product has always shown them.
#pragma once

#include <string_view>

namespace kv::texts {

// Reserved example names stand for the product's site until it is published.
#define KV_SUPPORT_EMAIL "support@korvane.example"
#define KV_EXAMPLE_DOMAIN "example.com"
inline constexpr std::string_view kWebSite = "https://www.korvane.example";

inline constexpr std::string_view kTitle = "Korvane Configuration Wizard";

inline constexpr std::string_view kWelcomeInitial =
    "The Configuration Wizard will help you for the initail configuration to make the Korvane "
    "work properly. Click on Next to contihue or Cancel to exit the Configuration Wizard.";
inline constexpr std::string_view kWelcomeExisting =
    "The Configuration Wizard will help you for the modifying, backing up, or deleting current "
    "configuration. Click on Next to contihue or Cancel to exit the Configuration Wizard.";

inline constexpr std::string_view kConfirmWriting =
    "Configuration Wizard is going to write settings to disk and copy files to web server's "
    "folders. Click on Next to continue, or click on Cancel to exit.";
inline constexpr std::string_view kConfirmBackup =
    "Configuration Wizard is going to backup settings to disk. Click on Next to continue, or "
    "click on Cancel to exit.";
inline constexpr std::string_view kConfirmDeletion =
    "Configuration Wizard is going to delete settings from disk and files to web server's "
    "folders. Click on Next to continue, or click on Cancel to exit.";

inline constexpr std::string_view kCompleted = "Configuration completed";
inline constexpr std::string_view kCompletedInstruction =
    "The configuration completed, click on Finish to exit.";

inline constexpr std::string_view kErrorSupport =
    "The installation is not correct, please try the installation again, or send email "
    "to " KV_SUPPORT_EMAIL ". Click on Finish to exit.";
inline constexpr std::string_view kErrorUpgrade =
    "The previous settings are not available, click on Help for detailed instructions to get "
    "upgrading done.";

inline constexpr std::string_view kCancelQuestion =
    "Are you sure you want to cancel Korvane configuration?";

}  // namespace kv::texts
