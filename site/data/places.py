"""Countries of the example shop, and what names of people, firms, streets and towns look like there."""

# Code: (English name, own name, inhabitants, area in km2, currency, year of the shop's first delivery)
COUNTRIES = {
    "AT": ("Austria", "Österreich", 9158750, 83879, "EUR", 2014),
    "BG": ("Bulgaria", "България", 6445481, 110994, "BGN", 2019),
    "BR": ("Brazil", "Brasil", 203080756, 8515767, "BRL", 2021),
    "CH": ("Switzerland", "Schweiz", 8962258, 41285, "CHF", 2013),
    "CN": ("China", "中国", 1409670000, 9596961, "CNY", 2020),
    "CZ": ("Czechia", "Česko", 10900555, 78871, "CZK", 2016),
    "DE": ("Germany", "Deutschland", 84669326, 357592, "EUR", 2012),
    "DK": ("Denmark", "Danmark", 5961249, 42943, "DKK", 2012),
    "EG": ("Egypt", "مصر", 105914499, 1002450, "EGP", 2022),
    "ES": ("Spain", "España", 48592909, 505990, "EUR", 2015),
    "FI": ("Finland", "Suomi", 5603851, 338455, "EUR", 2012),
    "FR": ("France", "France", 68373433, 643801, "EUR", 2014),
    "GB": ("United Kingdom", "United Kingdom", 68265209, 243610, "GBP", 2013),
    "GR": ("Greece", "Ελλάδα", 10400720, 131957, "EUR", 2018),
    "HU": ("Hungary", "Magyarország", 9584627, 93028, "HUF", 2016),
    "IE": ("Ireland", "Éire", 5281600, 70273, "EUR", 2015),
    "IL": ("Israel", "ישראל", 9842000, 22072, "ILS", 2021),
    "IS": ("Iceland", "Ísland", 383726, 103000, "ISK", 2013),
    "JP": ("Japan", "日本", 123802000, 377975, "JPY", 2019),
    "NO": ("Norway", "Norge", 5550203, 385207, "NOK", 2011),
    "PL": ("Poland", "Polska", 37636508, 312696, "PLN", 2016),
    "PT": ("Portugal", "Portugal", 10639726, 92212, "EUR", 2017),
    "SE": ("Sweden", "Sverige", 10551707, 450295, "SEK", 2011),
    "TR": ("Türkiye", "Türkiye", 85372377, 783562, "TRY", 2020),
    "UA": ("Ukraine", "Україна", 37860221, 603628, "UAH", 2018),
    "US": ("United States", "United States", 334914895, 9833517, "USD", 2018),
    "VN": ("Vietnam", "Việt Nam", 100309209, 331212, "VND", 2022),
}


class Locale:
    """How names are made in one country. Each text lists its choices between bars.

    towns: pairs "town:postal code"; in the code, 9 stands for any digit and A for a letter.
    phone: the country's number, a blank, and a pattern of the same kind.
    firms: patterns with {family}, {town} or neither.
    full: how a person's full name is put together.
    street: how a street and a house number are put together.
    """

    def __init__(self, given, family, towns, streets, firms, phone, full="{given} {family}", street="{street} {number}"):
        self.given = given.split("|")
        self.family = family.split("|")
        self.towns = [tuple(town.split(":")) for town in towns.split("|")]
        self.streets = streets.split("|")
        self.firms = firms.split("|")
        self.phone = phone
        self.full = full
        self.street = street


NUMBER_FIRST = "{number} {street}"

LOCALES = {
    "AT": Locale("Anna|Lukas|Katharina|Jürgen|Elfriede", "Gruber|Pöschl|Hofer|Mörtl|Übelacker",
                 "Wien:1090|Graz:8010|Innsbruck:6020", "Währinger Straße|Am Grünen Markt|Schönaugasse",
                 "{family} Feinkost|Teehaus {town}|{family} & Töchter", "+43 1 999 99 99"),
    "BG": Locale("Мария|Георги|Десислава|Иван|Йордан", "Петров|Димитрова|Стоянов|Тодорова",
                 "София:1000|Пловдив:4000|Варна:9000", "ул. Шипка|бул. Витоша|ул. Граф Игнатиев",
                 "Чайна {town}|{family} и синове|Книжарница Роза", "+359 2 999 9999"),
    "BR": Locale("João|Conceição|Thaís|Antônio|Luísa", "Gonçalves|Magalhães|Araújo|Simões",
                 "São Paulo:01310-999|Florianópolis:88010-999|Belém:66010-999",
                 "Rua Augusta|Avenida Paulista|Rua das Flores", "Empório {family}|Casa {town}|Café São João",
                 "+55 11 9999-9999", street="{street}, {number}"),
    "CH": Locale("Ursina|Reto|Zoë|Beat|Chiara", "Zürcher|Bühlmann|Favre|Rüegg", "Zürich:8001|Genève:1204|Basel:4051",
                 "Münstergasse|Rue du Rhône|Rheinsprung", "{family} Papeterie|Kontor {town}|Atelier {family}",
                 "+41 44 999 99 99"),
    "CN": Locale("伟|秀英|芳|敏|静", "王|李|张|刘|陈", "上海:200099|北京:100099|杭州:310099|成都:610099",
                 "南京西路|王府井大街|龙井路|春熙路", "{town}茶庄|{family}记文具店|{town}山水茶业有限公司",
                 "+86 21 9999 9999", full="{family}{given}", street="{street}{number}号"),
    "CZ": Locale("Jiří|Božena|Vojtěch|Žaneta|Ondřej", "Dvořák|Černá|Růžička|Příhoda",
                 "Praha:110 99|Brno:602 99|Plzeň:301 99", "Národní třída|Žižkova|Na Příkopě",
                 "Čajovna {town}|{family} a spol.|Papírnictví {family}", "+420 999 999 999"),
    "DE": Locale("Jürgen|Käthe|Sören|Änne|Björn|Renate", "Müller|Schröder|Weiß|Jäger|Großmann|Köhler",
                 "Berlin:10999|Köln:50999|München:80999|Lübeck:23999|Gießen:35399",
                 "Kastanienallee|Große Bleichen|Türkenstraße|An der Untertrave",
                 "{family} & Söhne GmbH|Teekontor {town}|Buchhandlung {family}|Kaffeerösterei {town}", "+49 30 9999999"),
    "DK": Locale("Søren|Bodil|Jørgen|Åse|Mette", "Nørgaard|Sørensen|Kjær|Østergaard",
                 "København:2999|Aarhus:8000|Odense:5000", "Nørrebrogade|Åboulevarden|Vestergade",
                 "{family} Thehandel|Den Grønne Dør|{town} Papirhus", "+45 99 99 99 99"),
    "EG": Locale("محمد|فاطمة|أحمد|ليلى|يوسف", "حسن|إبراهيم|المصري|عبد الله",
                 "القاهرة:11511|الإسكندرية:21599|أسوان:81599", "شارع التحرير|شارع النيل|شارع الهرم",
                 "مكتبة {town}|شاي {family}|مؤسسة {family} التجارية", "+20 2 9999 9999"),
    "ES": Locale("Íñigo|Begoña|José|Ángeles|Núria", "Muñoz|Ibáñez|Núñez|Peñalver",
                 "Madrid:28013|Cádiz:11001|A Coruña:15001|Logroño:26001", "Calle Mayor|Plaza de España|Rúa Nova",
                 "Librería {family}|Tés de {town}|Hijos de {family}", "+34 91 999 9999", street="{street}, {number}"),
    "FI": Locale("Päivi|Jyrki|Väinö|Aino|Sirkka-Liisa", "Hämäläinen|Mäkelä|Järvinen|Öhman",
                 "Helsinki:00100|Jyväskylä:40100|Hämeenlinna:13100", "Mäkelänkatu|Itäinen Rantakatu|Kävelykatu",
                 "{family} Oy|Teetupa {town}|Paperikauppa {family}", "+358 9 999 9999"),
    "FR": Locale("Élodie|François|Zoé|Benoît|Maëlle", "Lefèvre|Garçon|D’Aubigné|Noël",
                 "Paris:75011|Besançon:25000|Nîmes:30000|Saint-Étienne:42000",
                 "rue de l’Église|boulevard Voltaire|place du Marché", "Épicerie {family}|Le Thé de {town}|Papeterie {family} & Fils",
                 "+33 1 99 99 99 99", street="{number}, {street}"),
    "GB": Locale("Siân|Oliver|Fiona|Alasdair|Zoë", "O’Brien|Llewellyn|Smith-Jones|MacLeòid",
                 "London:N1 9AA|Edinburgh:EH1 9AA|Cardiff:CF10 9AA|Bath:BA1 9AA", "High Street|Mill Lane|Station Road",
                 "{family} & Daughters|The {town} Tea Company|The “Blue Door” Café|{family} Stationers Ltd",
                 "+44 20 7999 9999", street=NUMBER_FIRST),
    "GR": Locale("Γιώργος|Ελένη|Νίκος|Αικατερίνη|Δημήτρης", "Παπαδόπουλος|Γεωργίου|Νικολάου|Αθανασίου",
                 "Αθήνα:105 99|Θεσσαλονίκη:546 99|Πάτρα:262 99", "Ερμού|Τσιμισκή|Αγίου Ανδρέου",
                 "Βιβλιοπωλείο {family}|Τσάι & Καφές {town}|Αφοί {family}", "+30 21 0999 9999"),
    "HU": Locale("Zsófia|György|Ágnes|Béla|Csenge", "Szűcs|Kőműves|Tóth|Fülöp", "Budapest:1099|Győr:9021|Pécs:7621",
                 "Váci utca|Széchenyi tér|Petőfi út", "{family} és Társa Kft.|{town}i Teaház|Papírbolt a Hídhoz",
                 "+36 1 999 9999", full="{family} {given}", street="{street} {number}."),
    "IE": Locale("Síle|Ruairí|Aoife|Cillian|Gráinne", "Ó Súilleabháin|Murphy|Ní Dhónaill|Walsh",
                 "Dublin:D02 A999|Galway:H91 A999|Cork:T12 A999", "Grafton Street|Shop Street|Sráid an Chaisleáin",
                 "{family}’s of {town}|The Turf Fire Bookshop|{family} & Sons", "+353 1 999 9999", street=NUMBER_FIRST),
    "IL": Locale("נועה|דוד|תמר|יוסף|מיכל", "כהן|לוי|פרידמן|מזרחי", "תל אביב:6199999|ירושלים:9199999|חיפה:3199999",
                 "רחוב דיזנגוף|רחוב יפו|שדרות הנשיא", "בית התה {town}|ספרים {family}|{family} ובניו", "+972 3 999 9999"),
    "IS": Locale("Þórunn|Guðmundur|Sigríður|Örn|Ásdís", "Jónsdóttir|Þorvaldsson|Björnsdóttir|Ægisson",
                 "Reykjavík:101|Akureyri:600|Ísafjörður:400", "Laugavegur|Hafnarstræti|Skólavörðustígur",
                 "Tehús {town}|Bókabúðin Æðey|{given} ehf.", "+354 999 9999"),
    "JP": Locale("陽子|健太|さくら|翔|美咲", "佐藤|鈴木|高橋|渡辺|斎藤", "東京:150-0099|京都:604-8099|札幌:060-0099",
                 "渋谷区神南|中京区寺町通|中央区北一条", "{family}茶舗|{town}文具店|株式会社{family}商店|カフェ・ド・{town}",
                 "+81 3 9999 9999", full="{family} {given}", street="{street}{number}番地"),
    "NO": Locale("Åse|Bjørn|Kjersti|Øyvind|Sølvi|Håkon", "Bråten|Østby|Ærø|Sæther|Grønnestad",
                 "Oslo:0199|Bergen:5003|Tromsø:9008|Ålesund:6002|Bodø:8006", "Grønlandsleiret|Strandgaten|Sjøgata|Øvre Slottsgate",
                 "{family} Tehus|{town} Papir & Bok|Kaffebrenneriet i {town}|Brødrene {family} AS", "+47 99 99 99 99"),
    "PL": Locale("Małgorzata|Łukasz|Zbigniew|Żaneta|Paweł", "Wiśniewski|Dąbrowska|Wójcik|Ślusarczyk",
                 "Warszawa:00-999|Kraków:31-999|Łódź:90-999|Gdańsk:80-999", "ul. Świętokrzyska|ul. Długa|ul. Piotrkowska",
                 "Herbaciarnia {town}|{family} i Synowie|Księgarnia „Pod Lipą”", "+48 22 999 99 99"),
    "PT": Locale("João|Inês|Gonçalo|Mafalda|Estêvão", "Conceição|Simões|Guimarães|Brandão",
                 "Lisboa:1200-999|Évora:7000-999|Setúbal:2900-999", "Rua da Prata|Praça do Comércio|Travessa do Açúcar",
                 "Mercearia {family}|Chás de {town}|Livraria {family} & Irmão", "+351 21 999 9999", street="{street}, {number}"),
    "SE": Locale("Åsa|Göran|Märta|Björn|Linnéa", "Söderström|Åkerlund|Nyström|Bäckman",
                 "Stockholm:111 99|Malmö:211 99|Göteborg:411 99|Östersund:831 99", "Götgatan|Östra Hamngatan|Storgatan",
                 "{family}s Tehandel AB|{town} Pappershandel|Fröken {family}", "+46 8 999 99 99"),
    "TR": Locale("Ayşe|İbrahim|Gökçe|Çağlar|Işıl", "Yılmaz|Öztürk|Şahin|Çelik", "İstanbul:34099|İzmir:35099|Eskişehir:26099",
                 "İstiklal Caddesi|Kıbrıs Şehitleri Caddesi|Çarşı Sokak", "{family} Çay Evi|{town} Kitabevi|{family} Kardeşler A.Ş.",
                 "+90 212 999 99 99"),
    "UA": Locale("Олена|Тарас|Ганна|Юрій|Соломія", "Шевченко|Ковальчук|Їжакевич|Гриценко",
                 "Київ:01999|Львів:79999|Одеса:65999", "вул. Хрещатик|вул. Дорошенка|вул. Дерибасівська",
                 "Чайна хата {town}|Книгарня «Є»|ТОВ «{family}»", "+380 44 999 9999", street="{street}, {number}"),
    "US": Locale("Grace|Marcus|José|Zoe|Wendell", "Carter|O’Neill|Nguyen|Fitzgerald",
                 "Portland:97209|Burlington:05401|Santa Fe:87501|New Orleans:70130", "Main Street|Alder Avenue|Canal Street",
                 "{family} General Store|{town} Coffee Roasters|{family}, {family} & Co.", "+1 503 555 0199", street=NUMBER_FIRST),
    "VN": Locale("Thị Hương|Văn Đức|Quỳnh|Minh Tuấn|Ngọc Ánh", "Nguyễn|Trần|Phạm|Đặng", "Hà Nội:100099|Huế:530099|Đà Nẵng:550099",
                 "Phố Hàng Bông|Đường Lê Lợi|Đường Bạch Đằng", "Trà {town}|Nhà sách {family}|Công ty TNHH {family}",
                 "+84 24 9999 9999", full="{family} {given}", street=NUMBER_FIRST),
}
