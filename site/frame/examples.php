<?php

/** The examples in the order of the navigation: group, then page => [title, what it shows]. */

return [
    "Grids" => [
        "grid.php" => [
            "A plain grid",
            "A few lines of PHP: pages, sorting by a click on a heading, and a spreadsheet to download.",
        ],
        "columns.php" => [
            "Columns and colours",
            "Which columns show, what they are called, how wide they are, and how rows and repeated values look.",
        ],
        "table.php" => [
            "A whole table",
            "One call shows a table of the database as it is.",
        ],
        "two-grids.php" => [
            "Two grids on one page",
            "Each has its own tag, so each pages and sorts by itself and neither forgets where it was.",
        ],
    ],
];
