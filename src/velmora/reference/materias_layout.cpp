// Layout of the materials' form.

#include "velmora/reference/frm_materias.h"

namespace velmora::reference {

using screen::Role;
namespace lay = screen::layout;

namespace {

// Widths in digits.
constexpr int keyWidth = 7;
constexpr int codeWidth = 16;

void writeFixedCaptions(MaterialFields& f) {
    f.Check1.setCaption("Hierro");
    f.Check2.setCaption("Disco");
    f.Check3.setCaption("Brida");
    f.Check4.setCaption(" Cremallera  ");
    f.cmdBuscarArticulo.setCaption("Buscar &Articulo (F1)");
    f.cmdNuevo.setCaption("&Nuevo (F4)");
    f.cmdCancelar.setCaption("&Cancelar");
    f.cmdGuardar.setCaption("&Guardar (F5)");
    f.cmdBorrar.setCaption("&Borrar");
    f.cmdSalir.setCaption("&Salir");
    f.fraMaterial.setCaption("Material");
    f.dbgFco.setAccessibleName("Materiales");
}

void writeHints(MaterialFields& f) {
    f.dbgFco.setHint("Materiales de las propuestas; las flechas eligen uno");
    f.Text1(materialId).setHint("Número del material; con uno que existe se va a él");
    f.Text1(materialName).setHint("Descripción con la que se elige en la propuesta");
    f.Text1(materialArticleCode).setHint("Código del artículo del que se toman los precios; F1 lo busca");
    f.Text1(materialPrinted).setHint("Como se lee el material en la propuesta impresa");
    f.Check1.setHint("Espacio la marca: el grueso del disco se toma de las medidas de la chapa de hierro");
    f.Check2.setHint("Espacio la marca: material de discos; sin ella, de cubos");
    f.Check3.setHint("No se guarda: un material de bridas es uno sin Disco");
    f.Check4.setHint("Espacio la marca: material de cremalleras; su artículo debe tener la fórmula 1");
}

}  // namespace

void frmMaterias::arrange() {
    writeFixedCaptions(f_);
    writeHints(f_);
    const auto& Text1 = f_.Text1;
    setLayout(lay::column(
        lay::plain(f_.dbgFco).stretched(),
        lay::group(
            f_.fraMaterial,
            lay::column(
                lay::row(lay::field("Código", Text1(materialId), keyWidth).number().above(),
                         lay::field("Descripción", Text1(materialName)).above().stretched(2),
                         lay::field("Código del Articulo", Text1(materialArticleCode), codeWidth).above(),
                         lay::field("Descripción del Articulo", Text1(materialArticle))
                             .as(Role::calculated)
                             .above()
                             .stretched(3)),
                lay::row(lay::field("Detalle del material en la Impresión de la propuesta", Text1(materialPrinted))
                             .above()
                             .stretched()),
                lay::row(lay::plain(f_.Check1), lay::plain(f_.Check2), lay::plain(f_.Check3), lay::plain(f_.Check4),
                         lay::space(), lay::plain(f_.cmdBuscarArticulo)))),
        lay::row(lay::plain(f_.cmdNuevo), lay::plain(f_.cmdCancelar), lay::plain(f_.cmdGuardar),
                 lay::plain(f_.cmdBorrar), lay::space(), lay::plain(f_.cmdSalir))));
    setTabOrder({&f_.dbgFco, &Text1(materialId), &Text1(materialName), &Text1(materialArticleCode),
                 &Text1(materialPrinted), &f_.Check1, &f_.Check2, &f_.Check3, &f_.Check4, &f_.cmdBuscarArticulo,
                 &f_.cmdNuevo, &f_.cmdCancelar, &f_.cmdGuardar, &f_.cmdBorrar, &f_.cmdSalir});
}

}  // namespace velmora::reference
