"""What the example shop sells and who works there."""

# Name, description, unit, lowest and highest price, kilograms, product names.
CATEGORIES = [
    ("Tea", "Green, black and white teas, bought each spring from the people who grow them.", "100 g bag", 5, 28, 0.1,
     "Sencha 煎茶|Gyokuro 玉露|Genmaicha 玄米茶|Hōjicha ほうじ茶|Longjing 龙井|Tieguanyin 铁观音|Bai Mudan 白牡丹|"
     "Darjeeling First Flush|Assam Golden Tips|Ceylon Nuwara Eliya|Kenyan Purple|Earl Grey with Calabrian Bergamot|"
     "Lapsang Souchong|Rooibos|Peppermint from Piemonte|Chamomile"),
    ("Coffee", "Roasted on Mondays and Thursdays, sent out the day after.", "250 g bag", 8, 24, 0.25,
     "Yirgacheffe Konga|Sidamo Ardi|Antigua Pastores|Huehuetenango|Tarrazú La Pastora|Nariño El Tambo|Cerrado Mineiro|"
     "Mandheling|Blue Harbour Espresso|Decaf Chiapas|Filter Blend “Café au Quai”|Cascara"),
    ("Kitchen", "Things for making and pouring, in cast iron, enamel, clay and glass.", "piece", 6, 140, 0.6,
     "Tetsubin Kettle, 0.8 l|Enamel Kettle, Blue|Kyūsu Teapot|Gaiwan, Celadon|Glass Teapot, 1 l|Pour-Over Dripper|"
     "Hand Grinder, Steel|Moka Pot, 3 Cups|Džezva, Copper|Matcha Whisk|Tea Strainer|Milk Jug|Honey Spoon, Olive Wood|"
     "Measuring Scoop, Brass|Cast Iron Trivet|Storage Tin, 100 g|Storage Tin, 250 g"),
    ("Tableware", "Cups, bowls and plates from small potteries around the North and the Baltic Sea.", "piece", 7, 65, 0.35,
     "Yunomi, Shino Glaze|Cup and Saucer “Ærø”|Espresso Cup, Set of 2|Café au Lait Bowl|Mug, Speckled|Mug, Indigo|"
     "Travel Mug, 350 ml|Tumbler, Recycled Glass|Plate, 18 cm|Plate, 24 cm|Cake Stand|Sugar Bowl|Salt Pig|Egg Cup|"
     "Candlestick, Brass|Carafe, 1 l"),
    ("Paper", "Notebooks, letter paper and cards that take ink without feathering.", "piece", 2, 38, 0.2,
     "Notebook, Ruled, A5|Notebook, Plain, A5|Notebook, Dotted, A6|Travel Journal|Watercolour Block, 24 × 32 cm|"
     "Letter Paper, Laid, 50 Sheets|Envelopes, C6, 25 Pieces|Postcards, Blank, 20 Pieces|Washi Sheet “Asanoha”|"
     "Blotting Paper|Index Cards, 100 Pieces|Wall Calendar|Desk Pad|Gift Wrap, Roll|Bookplates “Ex Libris”"),
    ("Writing", "Pens, pencils and inks, tried at our own desks.", "piece", 1.5, 190, 0.05,
     "Fountain Pen, Steel Nib F|Fountain Pen, Steel Nib M|Fountain Pen, Gold Nib|Rollerball, Brass|Pencil 2B, Cedar|"
     "Pencil HB, Cedar|Mechanical Pencil, 0.5 mm|Coloured Pencils, 24 Pieces|Ink, Iron Gall, 50 ml|Ink, Fjord Blue, 50 ml|"
     "Ink, Sepia, 50 ml|Calligraphy Brush 毛笔|Sealing Wax|Eraser|Sharpener, Brass|Pen Roll, Canvas"),
    ("Textiles", "Linen and wool from mills that still run their own looms.", "piece", 9, 180, 0.4,
     "Tea Towel, Linen|Apron, Denim|Tablecloth, 140 × 220 cm|Napkins, Set of 4|Wool Blanket “Røros”|Cushion Cover|"
     "Felt Slippers|Tote Bag|Scarf, Merino|Pot Holder, Pair|Bath Towel, Waffle|Throw, Mohair"),
    ("Pantry", "Sweet and salty things that keep, and go well with what is in the cup.", "jar", 3, 26, 0.3,
     "Cloudberry Jam|Lingonberry Jam|Fig Mustard|Heather Honey|Chestnut Honey|Orange Marmalade|Sea Salt from Læsø|"
     "Smoked Paprika|Kalamata Olives Ελιές|Dukkah دقة|Halva חלווה|Pumpkin Seed Oil|Crispbread|Shortbread|Dark Chocolate 72 %|"
     "Salted Caramels"),
]

# Given name, family name, title, number of the boss in this list (0: none).
EMPLOYEES = [
    ("Ingrid", "Solberg", "Managing director", 0),
    ("Tomáš", "Novák", "Head of sales", 1),
    ("Amélie", "Dufour", "Head of purchasing", 1),
    ("Kwame", "Mensah", "Head of warehouse", 1),
    ("佳奈", "中村", "Tea buyer", 3),
    ("Łucja", "Kowalczyk", "Coffee roaster", 3),
    ("Søren", "Bjerregaard", "Sales, Nordic countries", 2),
    ("Ελένη", "Παππά", "Sales, Mediterranean", 2),
    ("Олексій", "Мельник", "Sales, Eastern Europe", 2),
    ("Deniz", "Yıldız", "Sales, Türkiye", 2),
    ("ليلى", "منصور", "Sales, Middle East", 2),
    ("נועם", "ברק", "Sales, Middle East", 2),
    ("Hồng", "Trần", "Sales, Asia", 2),
    ("João", "Araújo", "Sales, Americas", 2),
    ("Beatrix", "Großkopf", "Sales, Central Europe", 2),
    ("Niamh", "Ní Bhriain", "Sales, British Isles", 2),
    ("Mikołaj", "Zając", "Warehouse", 4),
    ("Fatou", "N’Diaye", "Warehouse", 4),
    ("Åke", "Lindqvist", "Warehouse", 4),
    ("Zsuzsanna", "Erdős", "Bookkeeping", 1),
    ("Þóra", "Hákonardóttir", "Customer care", 2),
    ("Matteo", "D’Angelo", "Customer care", 2),
    ("Priya", "Raghunathan", "Web shop", 1),
    ("Oscar", "van der Meer", "Web shop", 23),
    ("Sofía", "Peña", "Apprentice", 4),
]
