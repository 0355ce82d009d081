#pragma once
// The host's session, MyBd, as the component sees it.

#include "velmora/platform/session/session.h"

#include "face.h"

namespace velmora::wine_host {

/// The session must outlive the face; `connection` is the face of its connection.
Object makeSessionFace(session::Session& session, IDispatch* connection);

}  // namespace velmora::wine_host
