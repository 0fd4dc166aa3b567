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
        "formats.php" => [
            "Formats",
            "Functions that write numbers, dates and texts as they are wanted; each stands at the head of its column.",
        ],
        "templates.php" => [
            "Templates and attributes",
            "A bar drawn from a value, cells of several fields, and rows coloured by what stands in them.",
        ],
        "plain.php" => [
            "HTML from the query",
            "The only page here that is not hardened: values are written as they are, which is the default, for data that you know.",
        ],
        "table.php" => [
            "A whole table",
            "One call shows a table of the database as it is.",
        ],
        "export.php" => [
            "A spreadsheet to download",
            "The button sends every record, not only the page: here with or without headings, with plain or formatted numbers.",
        ],
        "two-grids.php" => [
            "Two grids on one page",
            "Each has its own tag, so each pages and sorts by itself and neither forgets where it was.",
        ],
    ],
    "Around the grid" => [
        "bars.php" => [
            "Bars and page size",
            "The bar above and below the grid, and a select with which visitors choose how many rows a page has.",
        ],
        "search.php" => [
            "A search form",
            "The page's own form: what visitors type never becomes a part of the SQL, and stays from page to page.",
        ],
        "filter.php" => [
            "A filter that stays",
            "The page's own choices above the grid, kept while visitors sort and turn pages.",
        ],
        "no-count.php" => [
            "Without counting",
            "Large results need not be counted: the bar then tells where the visitor is, but not how far it goes.",
        ],
        "limit.php" => [
            "A limit on records",
            "The fifty largest orders: paging, addresses and the spreadsheet end there, whatever the query finds.",
        ],
        "languages.php" => [
            "Four languages",
            "English, German and Norwegian are built in; a list of twelve words adds any other, here Polish.",
        ],
    ],
    "Editing" => [
        "customers.php" => [
            "Add, edit, delete",
            "From the grid to one customer and on to a form, with a choice of countries, required fields and a question before "
                . "anything is deleted.",
        ],
        "order-lines.php" => [
            "Keys of two columns",
            "The lines of an order: order and line together say which record is meant, and a new line gets the next number.",
        ],
        "stock.php" => [
            "Editing only",
            "A list whose records open as forms at once; some fields are only shown, and nothing can be added or deleted.",
        ],
        "messages.php" => [
            "Messages in three languages",
            "What the buttons and the messages say after saving, failing and deleting, in English, German and Norwegian.",
        ],
    ],
];
