#include "velmora/services/frm_doc.h"

#include "velmora/platform/runtime/dates.h"
#include "velmora/services/common_dialog.h"
#include "velmora/services/document_files.h"

namespace velmora::services {

namespace lay = screen::layout;

namespace {

// Positions of the buttons on the bar, separators included.
enum Place : int { viewing = 3, deleting = 5, leaving = 7 };

constexpr const char* fromDisk = "FICHERO";
constexpr const char* fromScanner = "ESCANER";

}  // namespace

frmDoc::frmDoc(session::Session& session, platform::Desk& desk) : Form("frmDoc"), desk_(desk), store_(session, desk) {
    setCaption("Documentos Adjuntos");
    arrange();
    Toolbar1.onButtonClick = [this](int index) { Toolbar1_ButtonClick(index); };
    Toolbar1.onMenuClick = [this](const std::string& key) { Toolbar1_ButtonMenuClick(key); };
    // Differs D-540: a double click and Enter on a document open it; the required window has its button alone.
    dbgPlanos.onButtonClick = [this](int) { viewDocument(); };
    dbgPlanos.onKeyDown = [this](screen::KeyDown& key) {
        if (key.key == screen::Key::enter) {
            key.key = screen::Key::none;
            viewDocument();
        }
    };
    onKeyDown = [this](screen::KeyDown& key) {
        // Chosen C-186: Esc closes this window and that of purchase prices, as it closes the main form.
        if (key.key == screen::Key::escape) {
            unload();
        }
    };
}

void frmDoc::arrange() {
    Toolbar1.setItems(
        {{.caption = "Nuevo documento",
          .menu = {{.key = fromDisk, .caption = "Fichero existente"}, {.key = fromScanner, .caption = "Escaner"}}},
         {},
         {.caption = "Visualizar documento", .menu = {}},
         {},
         {.caption = "Eliminar Documento", .menu = {}},
         {},
         {.caption = "Salir", .menu = {}}});
    Toolbar1.setAccessibleName("Acciones sobre los documentos");
    dbgPlanos.setAccessibleName("Documentos de la propuesta");
    dbgPlanos.setHint("Documentos de la propuesta; Enter o doble clic abre el elegido");
    dbgPlanos.setColumns(
        {{.field = 0, .caption = "Id", .visible = false}, {.field = 1, .caption = "Fichero", .width = 7000}});
    setLayout(lay::column(lay::plain(Toolbar1), lay::plain(dbgPlanos).stretched()));
    setTabOrder({&dbgPlanos, &Toolbar1});
}

void frmDoc::msCargarDocumentos() {
    rsPlanos_ = store_.list({nIdExp, nIdAct});
    dbgPlanos.bind(rsPlanos_);
}

void frmDoc::msAnadirFichero(const std::string& path) {
    if (!store_.msAnadirFichero(path, {nIdExp, nIdAct})) {
        setTag("E");
    }
}

void frmDoc::Toolbar1_ButtonClick(int index) {
    switch (index) {
        case viewing:
            viewDocument();
            break;
        case deleting:
            deleteDocument();
            break;
        case leaving:
            unload();
            break;
        default:
            break;
    }
}

void frmDoc::Toolbar1_ButtonMenuClick(const std::string& key) {
    if (key == fromDisk) {
        addFromDisk();
    } else if (key == fromScanner) {
        scan();
    }
}

void frmDoc::viewDocument() {
    if (hasDocuments()) {
        store_.LoadFileFromDB(rsPlanos_["dex_id"].toLong());
    }
}

void frmDoc::deleteDocument() {
    if (!hasDocuments()) {
        return;
    }
    const ShownDocument document = store_.shown(rsPlanos_, {nIdExp, nIdAct});
    const screen::Answer answer = desk_.screen.show({.text = "Realmente desea eliminar este documento ?",
                                                     .icon = screen::Icon::question,
                                                     .buttons = screen::Buttons::yesNo});
    if (answer == screen::Answer::yes) {
        store_.remove(document);
        msCargarDocumentos();
    }
}

void frmDoc::addFromDisk() {
    std::string path;
    std::string title;
    if (VBGetOpenFileName(desk_.services, path, title, "Selección de Fichero", "Todos (*.*)|*.*")) {
        msAnadirFichero(path);
        msCargarDocumentos();
    }
}

void frmDoc::scan() {
    // Kept K-183: the name has a resolution of minutes, so two scans within one minute get the same name in the list.
    // Required as it is; it determines stored names.
    const std::string path = store_.temporaryPath("DOC" + runtime::Format(desk_.clock.now(), "yyyymmddhhnn") + ".pdf");
    const auto scanner = desk_.components.create<components::Scanner>("MIRTOL.jMirtol");
    scanner->setFichero(path);
    scanner->jConfig();
    if (!scanner->resultado()) {
        return;
    }
    msAnadirFichero(path);
    msCargarDocumentos();
    // Kept K-184: the scanned file is deleted even when its content was not stored; the page can be scanned again.
    deleteFile(path);
}

}  // namespace velmora::services
