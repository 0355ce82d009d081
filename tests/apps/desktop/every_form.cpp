#include "every_form.h"

#include "velmora/apps/desktop/about_form.h"
#include "velmora/apps/desktop/backup_form.h"
#include "velmora/apps/desktop/first_start_form.h"
#include "velmora/apps/desktop/recovery_form.h"
#include "velmora/apps/desktop/start_form.h"
#include "velmora/apps/desktop/table_forms.h"

namespace velmora::desktop {

EveryForm::EveryForm() {
    vmora_.MyBd(&session_);
}

std::vector<WindowPicture> EveryForm::forms() {
    std::vector<WindowPicture> all = windowPictures(session_, desk_);
    for (const auto& more : {tablePictures(session_, desk_), aroundForms()}) {
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

std::vector<WindowPicture> EveryForm::aroundForms() {
    const std::string file = folder_.file("taller.db");
    return {
        {"inicio",
         [this, file] {
             return std::make_unique<StartForm>(desk_, vmora_, session_, &copies_,
                                                DatabasePlace{.file = file, .server = {}});
         }},
        {"copias", [this] { return std::make_unique<BackupForm>(desk_, copies_); }},
        {"recuperar", [] { return std::make_unique<RecoveryForm>("Una propuesta quedó sin grabar."); }},
        {"primer_inicio",
         [this, file] { return std::make_unique<FirstStartForm>("Elija un taller.", file, services_); }},
        {"ajustes", [this] { return std::make_unique<SettingsForm>(desk_, settings_); }},
        {"acerca_de", [] { return std::make_unique<AboutForm>("VELMORA"); }},
    };
}

}  // namespace velmora::desktop
