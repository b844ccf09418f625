#include "desktop/modShowSubForms.h"

#include "desktop/FormPosition.h"
#include "desktop/frmAbout.h"
#include "desktop/frmHelpConfiguration.h"
#include "desktop/frmHelpGeneral.h"
#include "desktop/frmLogFileDelete.h"
#include "desktop/frmLogFileViewer.h"
#include "desktop/frmSplash.h"

namespace vantrellion {

void ShowHelpGeneralForm(System& s) {
    frmHelpGeneral form(s);
    RestoreFormPosition(s, form);
    form.exec();
    SaveFormPosition(s, form);
}

void ShowHelpConfigurationForm(System& s) {
    frmHelpConfiguration form(s);
    RestoreFormPosition(s, form);
    form.exec();
    SaveFormPosition(s, form);
}

void ShowLogFileDeleteForm(System& s) {
    frmLogFileDelete form(s);
    form.exec();
    // The one window whose place is stored and never read back.
    SaveFormPosition(s, form);
}

void ShowLogFileViewerForm(System& s) {
    frmLogFileViewer form(s);
    RestoreFormPosition(s, form);
    form.exec();
    SaveFormPosition(s, form);
}

void ShowSplashForm() {
    frmSplash form;
    RestoreFormPosition(form);
    form.exec();
    SaveFormPosition(form);
}

void ShowAboutForm(System& s) {
    frmAbout form(s);
    RestoreFormPosition(s, form);
    form.exec();
    SaveFormPosition(s, form);
}

}  // namespace vantrellion
