#pragma once

#include "Section.h"

#include <span>
#include <string_view>

/// The classes that archives may name, family by family, a file of classes/ each.
namespace moxui::archive {

std::span<ArchiveClass const> NodeClasses();
std::span<ArchiveClass const> ControlClasses();
std::span<ArchiveClass const> ButtonClasses();
std::span<ArchiveClass const> PopupClasses();
std::span<ArchiveClass const> TextClasses();
std::span<ArchiveClass const> ContainerClasses();

/// Null for a class that none of the families has.
ArchiveClass const* FindArchiveClass(std::string_view name);

}  // namespace moxui::archive
