#pragma once

class QObject;

namespace QSP {

/// Ends the documents of @p root and of all objects below it: none of their bindings and handlers runs
/// from now on.
///
/// An object that is deleted on its own ends its document itself. One that goes with an object of
/// another document does not: what it binds is worked out again in the course of dying, from
/// objects that can no longer be read. To be called while all of them are whole.
void endDocuments(const QObject *root);

} // namespace QSP
