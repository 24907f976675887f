// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The way that Tab takes through a screen: from item to item of its layout, a column, a card or a grid as a whole and
// in the order in which it was filled. Left to themselves the boxes would come in the order in which the code made
// them.
class QWidget;

namespace circuidex {

// The first one of them; null for a screen without any.
QWidget *orderTabs(QWidget &body);

}
