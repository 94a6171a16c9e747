#pragma once

// Names of the node framework and of picking, for headers that only mention them.

class FenVisualization;
class FenVisList;
class IFenVisPropertyEdit;

class FenVisHitRecord;
class FenVisHitProperty;
class FenVisHitRecordList;
class FenVisHitRecordQuery;
class IFenVisEventHandler;

class FenVisOglSelect;
class FenVisOglSelectBuffer;
class FenVisOglSelectWeakPtr;
class FenVisPickScope;
class FenVisHoverHandler;
class FenVisDebugEventHandler;
