// One-record views, forms and their messages, for every kind of visitor.

import { testForTrouble } from "./trouble.mjs";

const record = "Morvu1FormDisplay=formOneRec";
const views = {
  "grid-record": `grid.php?${record}&Morvu1BookMark=10`,
  "templates-record": `templates.php?${record}&Morvu1BookMark=5`,
  "customers-record": `customers.php?${record}&Morvu1PK=17&Morvu1CurrRecord=17`,
  "customers-form": `customers.php?${record}&Morvu1PK=17&Morvu1CurrRecord=17&Morvu1FormEdit=1`,
  "customers-new": `customers.php?${record}&Morvu1FormAdd=1`,
  "order-lines-form": `order-lines.php?${record}&Order=2997&Morvu1PK=2997,2&Morvu1FormEdit=1`,
  "stock-form": `stock.php?${record}&Morvu1PK=19`,
  "messages-failed": `messages.php?${record}&Language=GER&Morvu1FormUpdate=1&Morvu1PK=4&Morvu1_Form_ID=4`,
};

for (const [name, address] of Object.entries(views)) testForTrouble(name, address);
