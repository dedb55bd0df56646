#pragma once

/// Makes known by name the types in which pages pass keys and partitions: DOCKEY and
/// PARTITIONNUMBER. (The engine itself knows QList<int> and the plain types.) Comes before a page
/// calls a slot that takes them; a second time changes nothing.
void registerPageTypes();
