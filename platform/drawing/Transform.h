// Transformation of entities, whatever their type.
#pragma once

#include "platform/drawing/GeMatrix3d.h"
#include "platform/drawing/dxf/Store.h"

class GroupList;
class OdDbDatabaseImpl;
class OcsTransform;

// Moves, turns, scales or mirrors the entity with all that belongs to it (attributes, vertices, the
// picture of a dimension). Raises OdError with nothing changed: eCannotScaleNonUniformly for a type
// that would have to become another one, eNotApplicable for one whose geometry is closed.
void TransformEntity(OdDbDatabaseImpl& database, dxf::RecordIndex index,
                     const OdGeMatrix3d& matrix);

// One record of a type that needs more than a table of its points.
using TransformRecord = void (*)(GroupList& groups, const OdGeMatrix3d& matrix);
void TransformText(GroupList& groups, const OdGeMatrix3d& matrix);  // TEXT, ATTRIB, ATTDEF
void TransformMText(GroupList& groups, const OdGeMatrix3d& matrix);
void TransformInsert(GroupList& groups, const OdGeMatrix3d& matrix);
void TransformLwPolyline(GroupList& groups, const OdGeMatrix3d& matrix);
void TransformHatch(GroupList& groups, const OdGeMatrix3d& matrix);
void TransformMultiLeader(GroupList& groups, const OdGeMatrix3d& matrix);

// A polyline with vertices of its own, and these.
void TransformVertices(dxf::Store& store, dxf::RecordIndex polyline, const OdGeMatrix3d& matrix);

OdGeVector3d NormalOf(const GroupList& groups);
void SetNormal(GroupList& groups, const OdGeVector3d& normal);
// Group 39 and the normal.
void TransformExtrusion(GroupList& groups, const OcsTransform& ocs);
// The length that a unit has afterwards, of a matrix that scales all directions alike.
double ScaleOf(const OdGeMatrix3d& matrix);
