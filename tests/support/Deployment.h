// The sample disk beside the model of what operations make of it, and a wizard at work on it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/model/Operations.h"
#include "tests/support/Wizard.h"

namespace kv {

// All that lies on drive C, the log's file left out.
Tree imageOf(const SampleDisk& disk);

Site sampleSite(Server server, UrlStyle style = UrlStyle::Kv);

// Gives every file of the product's folder that is deployed a new content.
void unpackNewerFiles(Tree& image);

// Brings the image's files and folders to the disk, a deployment, and newer files of the product.
void bring(const Tree& image, SampleDisk& disk);
void installBeforehand(SampleDisk& disk, const Site& site);
void unpackNewerFiles(SampleDisk& disk);

// Walks from panel 1 to the confirmation, with all choices and texts made anew.
void describeSite(frmWebConfig& form, const Site& site);

// What an observer sees of the progress line while it grows: one line for each step.
class Growth {
public:
    Lines by(int twips, std::size_t steps = 1);
    Lines to(int twips);

private:
    int width_ = kProgressBegin;
};
std::string width(int twips);

// What the finish panel's user has seen change, in order: captions, the progress line and whether
// the window can be finished.
Lines finishPanelChanges(const RecordingObserver& observer);

// A started wizard; and the press of Next that runs the operation, with all that has been seen so
// far forgotten.
std::unique_ptr<Wizard> startedWizard(SampleDisk& disk);
void runOperation(Wizard& wizard);

}  // namespace kv
