"""Sentences that the memo fields of the example shop are put together from."""

CUSTOMER = [
    "Prefers deliveries before ten, since the street is closed to lorries afterwards.",
    "Asked for the price list on paper.",
    "Orders for three branches at once; each wants an invoice of its own.",
    "The bell does not work: call from the corner.",
    "Met at the fair in spring, where they tried eleven teas and took nine.",
    "Pays within a week, always.",
    "Pays late, but pays.",
    "Closed from mid-July until the end of August.",
    "Interested in a tasting evening, best in November.",
    "Returned one teapot with a hairline crack; replaced the same day.",
    "Would like to see more from small potteries.",
    "Customs papers need the tariff number on every line.",
    "Writes in Norwegian, reads English.",
]

# What customers of some countries say in their own words.
OWN_WORDS = {
    "AT": "Möchte Rechnungen als PDF und die Lieferscheine auf Papier.",
    "CN": "请随货附上中文说明书。",
    "DE": "Möchte Rechnungen als PDF und die Lieferscheine auf Papier.",
    "EG": "يفضل التواصل عبر البريد الإلكتروني.",
    "FR": "Préfère être rappelé l’après-midi.",
    "GR": "Θέλει δείγματα πριν από κάθε μεγάλη παραγγελία.",
    "IL": "מבקשים משלוח עד יום חמישי.",
    "JP": "お茶の淹れ方の説明書を同封してください。",
    "NO": "Vil helst ha varene levert på en onsdag.",
    "PL": "Prosi o fakturę razem z towarem.",
    "UA": "Просить надсилати новинки окремим листом.",
}

PRODUCT = [
    "Tried at our own table for at least a year before it went into the shop.",
    "Comes in a plain box that can be used again.",
    "Made in small numbers, so that no two pieces are quite the same.",
    "Keeps best in a dark, dry place away from spices.",
    "Can go into the dishwasher, though it would rather not.",
    "A favourite present among our customers, and not only in December.",
    "Light, clear and a little sweet.",
    "Full and round, with a note of dried fruit.",
    "The maker has worked in the same yard since 1974.",
    "Sold out twice last year; the next delivery is expected in autumn.",
    "Goes well with everything from the pantry.",
]

ORDER = [
    "Please ring twice.",
    "It is a present: no invoice in the parcel.",
    "Partial delivery is fine.",
    "Deliver to the back door.",
    "Ship together with the previous order.",
    "Vær så snill og pakk godt inn.",
    "Bitte mit Geschenkpapier.",
]

EMPLOYEE = [
    "Keeper of the big kettle.",
    "Speaks four languages and is learning a fifth.",
    "First aid certificate until 2027.",
    "Works from home on Wednesdays.",
    "Looks after the plants on the second floor.",
    "Knows every product by its number.",
    "Came as an apprentice and stayed.",
]

REMINDER = [
    "Ring the potter about the cracked glaze",
    "Order labels for the new jars",
    "Taste the spring harvest",
    "Send the price list to the hotels",
    "Count the teapots",
    "Repair the bell at the back door",
    "Book the stand at the fair",
    "Ask for a second quote for the boxes",
    "Clean the big kettle",
    "Plan the tasting evening",
    "Renew the first aid kit",
    "Water the plants on the second floor",
]

# The one very long text.
LETTER = (
    "Dear all, you asked how the two of us came to open a tea house at the end of a pier, and why anybody would walk "
    "there in November. The short answer is the stove. The long answer begins with a boat that was for sale and a "
    "storm that made us wait. We drank what there was, from cups that did not match, and people kept coming in to ask "
    "whether we were open. By the evening we were. "
)
