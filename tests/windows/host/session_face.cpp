#include "session_face.h"

#include "variants.h"

namespace velmora::wine_host {

namespace {

Object makeFieldsFace(session::Session& session) {
    return makeFace({{"add", isMethod, [&session](Call& call) {
                          session.Campos().Add(call.text(0), static_cast<session::Tipo>(call.value(1).toLong()),
                                               call.value(2), call.value(3).toLong());
                          give(call.result(), true);
                      }}});
}

/// A write: the error is the first argument, the success the last.
std::function<void(Call&)> writing(session::Session& session, void (session::Session::*write)(std::string&, bool&)) {
    return [&session, write](Call& call) {
        std::string error;
        bool correcto = false;
        (session.*write)(error, correcto);
        assignTo(call.argument(0), error);
        assignTo(call.argument(call.count() - 1), correcto);
    };
}

}  // namespace

Object makeSessionFace(session::Session& session, IDispatch* connectionFace) {
    const std::shared_ptr<IDispatch> connection = shared(sharing(connectionFace));
    const std::shared_ptr<IDispatch> fields = shared(makeFieldsFace(session));
    return makeFace({
        {"connection", isGet, [connection](Call& call) { giveObject(call.result(), connection.get()); }},
        {"tabla", isPut, [&session](Call& call) { session.Tabla(call.text(0)); }},
        {"modo", isPut, [&session](Call& call) { session.Modo(call.value(0).toLong()); }},
        {"donde", isPut, [&session](Call& call) { session.Donde(call.text(0)); }},
        {"campos", isGet, [fields](Call& call) { giveObject(call.result(), fields.get()); }},
        {"insertar", isMethod, writing(session, &session::Session::Insertar)},
        {"actualizar", isMethod, writing(session, &session::Session::Actualizar)},
        {"comprobarconexion", isMethod,
         [&session](Call& call) {
             std::string error;
             const bool usable = session.ComprobarConexion(session.Connection(), error);
             assignTo(call.argument(1), error);
             if (call.count() > 2) {
                 assignTo(call.argument(2), usable);
             }
             give(call.result(), usable);
         }},
        {"idusuario", isGet, [&session](Call& call) { give(call.result(), session.IdUsuario()); }},
        {"parametros", isGet, [&session](Call& call) { give(call.result(), session.Parametros(call.text(0))); }},
    });
}

}  // namespace velmora::wine_host
