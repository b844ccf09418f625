#include "desktop/modShowSubForms.h"

#include "desktop/frmAbout.h"
#include "desktop/frmHelpConfiguration.h"
#include "desktop/frmHelpGeneral.h"
#include "desktop/frmLogFileDelete.h"
#include "desktop/frmLogFileViewer.h"
#include "desktop/frmSplash.h"

namespace vantrellion {

void ShowHelpGeneralForm(System& s) {
    frmHelpGeneral form(s);
    form.exec();
}

void ShowHelpConfigurationForm(System& s) {
    frmHelpConfiguration form(s);
    form.exec();
}

void ShowLogFileDeleteForm(System& s) {
    frmLogFileDelete form(s);
    form.exec();
}

void ShowLogFileViewerForm(System& s) {
    frmLogFileViewer form(s);
    form.exec();
}

void ShowSplashForm() {
    frmSplash form;
    form.exec();
}

void ShowAboutForm(System& s) {
    frmAbout form(s);
    form.exec();
}

}  // namespace vantrellion
