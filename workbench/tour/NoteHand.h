#pragma once

class GUI_ModelessPatternDialog;
class GUI_WebView;
class QString;
class TourStage;

/// A hand on the dialog of the note tool, which stands beside the window.
namespace NoteHand {

/// Presses the tool's button; whether the dialog is there then, with its page.
bool open(TourStage &stage);

/// Clicks Close in the page.
void close(TourStage &stage);

/// Gives the dialog the keys.
void activate(TourStage &stage);

/// Null without the tool.
GUI_ModelessPatternDialog *dialog(const TourStage &stage);
GUI_WebView *page(const TourStage &stage);

/// Keeps a picture of the dialog.
void addPicture(TourStage &stage, const QString &suffix);

}
