#include "velmora/adapters/scanner/device_form.h"

#include "velmora/platform/screen/layout.h"

namespace velmora::scanner {

DeviceForm::DeviceForm(const std::vector<Device>& devices) : Form("frmEscaner") {
    namespace lay = screen::layout;
    constexpr int titleWidth = 44;  // digits
    setCaption("Escanear una página");
    for (const Device& device : devices) {
        cboEscaner_.addItem(device.title);
    }
    cboEscaner_.setListIndex(devices.empty() ? -1 : 0);
    cmdEscanear_.setCaption("&Escanear");
    cmdCancelar_.setCaption("&Cancelar (ESC)");
    setLayout(lay::column(lay::field("Escáner", cboEscaner_, titleWidth),
                          lay::row(lay::space(), lay::plain(cmdEscanear_), lay::plain(cmdCancelar_))));
    setTabOrder({&cboEscaner_, &cmdEscanear_, &cmdCancelar_});
    cmdEscanear_.onClick = [this] { accept(); };
    cmdCancelar_.onClick = [this] { unload(); };
    onKeyDown = [this](screen::KeyDown& event) {
        if (event.key == screen::Key::escape) {
            event.key = screen::Key::none;
            unload();
        } else if (event.key == screen::Key::enter && activeControl() == &cboEscaner_) {
            event.key = screen::Key::none;
            accept();
        }
    };
}

void DeviceForm::accept() {
    if (cboEscaner_.listIndex() >= 0) {
        chosen_ = static_cast<std::size_t>(cboEscaner_.listIndex());
        unload();
    }
}

}  // namespace velmora::scanner
