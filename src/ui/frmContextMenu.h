#pragma once

#include "ui/Form.h"
#include "ui/controls/MenuItem.h"

namespace qb {

/// Never shown: carries the popup menu of the tree and the list.
class frmContextMenu : public Form {
 public:
  frmContextMenu();

  void QBL_InitLText() override;

  MenuItem mnuContextMenu{*this, "mnuContextMenu", "Context menu"};
  MenuItem mniCopy{mnuContextMenu, "mniCopy", "Copy selection"};
  MenuItem s1{mnuContextMenu, "s1", MenuItem::kSeparator};
  MenuItem mniTranslate{mnuContextMenu, "mniTranslate", "Translate Content with Editor"};
  MenuItem mniAssignTranslatedFile{mnuContextMenu, "mniAssignTranslatedFile", "Assign Translated File"};
  MenuItem mnuDummy66{mnuContextMenu, "mnuDummy66", MenuItem::kSeparator};
  MenuItem mniTranslateTitle{mnuContextMenu, "mniTranslateTitle", "Translate Title"};
  MenuItem mniTranslateProperties{mnuContextMenu, "mniTranslateProperties", "Translate Properties"};
  MenuItem s2{mnuContextMenu, "s2", MenuItem::kSeparator};
  MenuItem mniToBeTranslated{mnuContextMenu, "mniToBeTranslated", "Mark as 'to be translated'"};
  MenuItem mniInProgress{mnuContextMenu, "mniInProgress", "Mark as 'in progress'"};
  MenuItem mniCompleted{mnuContextMenu, "mniCompleted", "Mark as 'completed'"};
};

}  // namespace qb
