"""The eight pages of the control panel of a pumping station: what is drawn, and where.

Millimetres on an A3 sheet; a page draws between y = 42 and y = 285, the title block lies below.
"""
from ezdxf.enums import TextEntityAlignment as Align

PROJECT = {
    "CLIENTE": "Águas de Vale Verde S.A.", "PROJETO": "Painel de comando das bombas",
    "LOCAL": "Estação elevatória de água", "DESENHADO": "A. Moreira", "VERIFICADO": "C. Nunes",
    "DATA": "2024-03-18", "REVISAO": "B",
}
TITLES = (
    "Capa e índice de páginas", "Alimentação geral", "Partida direta dos motores",
    "Circuito de comando", "Entradas do CLP", "Saídas do CLP", "Régua de bornes",
    "Lista de cabos e legenda",
)
PHASES = (("L1", "Preto"), ("L2", "Vermelho"), ("L3", "Branco"))
COLUMNS = [25 + 47 * n for n in range(8)]


def title(sheet):
    sheet.frame(TITLES[sheet.number - 1], PROJECT)


def arrive(sheet, y, page, signal):
    sheet.insert("DE_PAGINA", 18, y, "$DE", PAGINA=str(page), SINAL=signal)


def leave(sheet, y, page, signal):
    sheet.insert("PARA_PAGINA", 400, y, "$DE", PAGINA=str(page), SINAL=signal)


def busbars(sheet, right=395):
    """Three phases across the page; gives their heights."""
    levels = (270, 265, 260)
    for (phase, colour), y in zip(PHASES, levels):
        sheet.wire([(20, y), (right, y)], POTENCIAL=phase, COR=colour, SECAO="16 mm²")
        sheet.text(phase, 14, y - 1, 2.2)
    return levels


def drop(sheet, x, y, poles=3, section="2,5 mm²"):
    """Wires from the busbars down to a symbol at (x, y)."""
    for pole in range(poles):
        phase, colour = PHASES[pole]
        sheet.dot(x + 8 * pole, 270 - 5 * pole)
        sheet.wire([(x + 8 * pole, 270 - 5 * pole), (x + 8 * pole, y)], POTENCIAL=phase,
                   COR=colour, SECAO=section)


def links(sheet, x, top, bottom, poles=3):
    for pole in range(poles):
        sheet.line((x + 8 * pole, top), (x + 8 * pole, bottom))


def terminals(sheet, x, y, first, poles=3):
    for pole in range(poles):
        sheet.insert("BORNE", x + 8 * pole, y, NUMERO=str(first + pole))


def cover(sheet):
    title(sheet)
    sheet.text("Painel de comando das bombas", 210, 258, 9, Align.CENTER)
    sheet.text("Estação elevatória de água", 210, 245, 6, Align.CENTER)
    data = (("Tensão nominal", "380 V"), ("Frequência nominal", "60 Hz"),
            ("Tensão de comando", "24 Vcc"), ("Corrente nominal", "63 A"),
            ("Corrente de curto-circuito", "10 kA"), ("Grau de proteção", "IP54"),
            ("Sistema de aterramento", "TN-S"), ("Temperatura ambiente", "40 °C"))
    sheet.text("Dados técnicos", 25, 224, 4)
    table(sheet, 25, 220, (60, 40), data)
    sheet.text("Índice de páginas", 25, 145, 4)
    table(sheet, 25, 141, (15, 85),
          [(str(number), name) for number, name in enumerate(TITLES, 1)])
    sheet.note("Notas gerais:\\P1. Desligar a alimentação antes de abrir o painel.\\P"
               "2. Reapertar as conexões após o transporte.\\P"
               "3. Condutores de comando com seção mínima de 1 mm².", 150, 224, 240, 3.5)
    sheet.note("4. Torque de aperto dos bornes conforme o fabricante.\\P"
               "5. Ensaiar os circuitos de proteção antes da energização.",
               150, 200.6, 240, 3.5)
    sheet.note("{\\fArial|b1|i0;Atenção:} risco de choque elétrico!", 150, 180, 240, 5)
    sheet.note("Fabricado conforme as normas\\PIEC 60204-1 e IEC 61439-2", 150, 150, 240, 3.5)


def table(sheet, x, y, widths, rows, height=7):
    for row, cells in enumerate(rows):
        left, top = x, y - height * row
        for width, cell in zip(widths, cells):
            sheet.box(left, top, width, height)
            sheet.text(cell, left + 2, top - height / 2 - 1.2)
            left += width


def power_feed(sheet):
    title(sheet)
    busbars(sheet)
    feeder(sheet, 30)
    drop(sheet, 110, 235)
    sheet.symbol("FUSIVEL3", 110, 235, "-F1", "Fusível de proteção", "Proteção do relé")
    sheet.symbol("RELE_FASE", 110, 212.2, "-K0", "Relé de falta de fase", "Supervisão da rede")
    links(sheet, 110, 219, 212.2)
    drop(sheet, 190, 235, section="6 mm²")
    sheet.symbol("DPS", 190, 235, "-F2", "Protetor contra surtos", "Classe II")
    sheet.wire([(198, 219), (198, 205)], POTENCIAL="PE", COR="Verde e amarelo", SECAO="16 mm²")
    sheet.insert("TERRA", 198, 205)
    drop(sheet, 270, 235, 2)
    sheet.symbol("DISJ2", 270, 235, "-Q2", "Disjuntor bipolar", "Serviços auxiliares")
    links(sheet, 270, 219, 195, 2)
    sheet.symbol("TRAFO", 270, 195, "-T1", "Transformador de comando", "380 V / 220 V")
    auxiliaries(sheet)
    drop(sheet, 345, 235, 2)
    sheet.symbol("DISJ2", 345, 235, "-Q3", "Disjuntor bipolar", "Fonte de comando")
    links(sheet, 345, 219, 188, 2)
    sheet.symbol("FONTE", 345, 188, "-G1", "Fonte chaveada", "380 Vca / 24 Vcc")
    for x, potential, y in ((345, "L+", 120), (353, "M", 110)):
        sheet.wire([(x, 154), (x, y), (400, y)], POTENCIAL=potential, COR="Azul-escuro",
                   SECAO="1 mm²")
        leave(sheet, y, 4, potential)
    leave(sheet, 274, 3, "L1 L2 L3")


def feeder(sheet, x):
    """The mains arrive at the terminals below and rise to the busbars."""
    drop(sheet, x, 225, section="16 mm²")
    sheet.symbol("DISJ3", x, 225, "-Q1", "Disjuntor geral", "Chave geral do painel")
    links(sheet, x, 209, 121.2)
    terminals(sheet, x, 120, 1)
    links(sheet, x, 118.8, 100)
    sheet.text("Régua -X1", x + 22, 119, 2.2)
    sheet.text("Entrada da rede", x - 8, 92, 3)
    sheet.text("3~ 380 V / 60 Hz", x - 8, 86, 2.5)
    sheet.text("Cabo de alimentação -W1", x - 8, 80, 2.5)


def auxiliaries(sheet):
    for x, text, y in ((278, "Iluminação do painel", 135), (270, "Tomada de serviço", 125)):
        sheet.wire([(x, 170), (x, y)], COR="Vermelho", SECAO="1,5 mm²", DESTINO=text)
        sheet.insert("BORNE", x, y - 1.2, NUMERO="")
        sheet.text(text, x + 4, y - 2, 2.2)


MOTORS = (
    ("1", "Bomba de recalque 1", "7,5 kW", "Disjuntor-motor"),
    ("2", "Bomba de recalque 2", "7,5 kW", "Disjuntor-motor"),
    ("3", "Bomba dosadora de cloro", "0,37 kW", "Disjuntor-motor"),
    ("4", "Misturador", "1,5 kW", "Disjuntor-motor"),
    ("5", "Ventilador do painel", "0,12 kW", "Disjuntor-motor"),
)


def motor_starters(sheet):
    title(sheet)
    busbars(sheet)
    arrive(sheet, 277, 2, "L1 L2 L3")
    for n, (number, function, power, protection) in enumerate(MOTORS):
        x = 32 + 76 * n
        drop(sheet, x, 240, section="4 mm²" if n < 2 else "2,5 mm²")
        sheet.symbol("DISJ_MOTOR", x, 240, f"-Q1{number}", protection, "Proteção do motor")
        links(sheet, x, 224, 200)
        sheet.symbol("CONT3", x, 200, f"-K{number}", "Contator de potência", "Comando do motor")
        links(sheet, x, 184, 141.2)
        terminals(sheet, x, 140, 3 * n + 1)
        sheet.text("Régua -X2", x + 22, 139, 2.2)
        for pole in range(3):
            sheet.wire([(x + 8 * pole, 138.8), (x + 8 * pole, 110)], CABO=f"-W{n + 11}",
                       DESTINO=function, COR=PHASES[pole][1])
        sheet.insert("MOTOR", x, 110, TAG=f"-M{number}", POTENCIA=power, FUNCAO=function,
                     DESCRICAO="Motor trifásico")


# A branch each: contact and load with their block, name, description and function.
CONTROL = (
    (("BOTAO_NF", "-S0", "Botão de emergência", "Porta do painel"),
     ("BOBINA", "-K10", "Relé de segurança", "Parada de emergência")),
    (("BOTAO_NA", "-S1", "Botão de rearme", "Porta do painel"),
     ("BOBINA", "-K11", "Relé auxiliar", "Rearme de falhas")),
    (("CHAVE", "-S2", "Chave seletora", "Manual - Automático"),
     ("BOBINA", "-K12", "Relé auxiliar", "Modo automático")),
    (("NA", "-K12", "Contato auxiliar", "Liberação"),
     ("BOBINA", "-K1", "Bobina do contator", "Bomba de recalque 1")),
    (("NA", "-K12", "Contato auxiliar", "Liberação"),
     ("BOBINA", "-K2", "Bobina do contator", "Bomba de recalque 2")),
    (("FUSIVEL1", "-F4", "Fusível 2 A", "Sinalização"),
     ("SINALEIRO", "-H1", "Sinaleiro branco", "Painel energizado")),
    (("NF", "-K0", "Contato auxiliar", "Falta de fase"),
     ("SINALEIRO", "-H2", "Sinaleiro vermelho", "Falha geral")),
    (("NA", "-K13", "Contato auxiliar", "Alarme"),
     ("SIRENE", "-H3", "Sirene", "Alarme sonoro")),
)


def rails(sheet, upper, lower):
    for y, potential, colour in ((upper, "L+", "Azul-escuro"), (lower, "M", "Azul-escuro")):
        sheet.wire([(20, y), (395, y)], POTENCIAL=potential, COR=colour, SECAO="1 mm²")
        sheet.text(potential, 13, y - 1, 2.2)


def control_circuit(sheet):
    title(sheet)
    rails(sheet, 265, 75)
    arrive(sheet, 273, 2, "L+")
    arrive(sheet, 66, 2, "M")
    for x, (contact, load) in zip(COLUMNS, CONTROL):
        sheet.dot(x, 265)
        sheet.dot(x, 75)
        sheet.wire([(x, 265), (x, 235)], COR="Azul-escuro", SECAO="1 mm²")
        block, tag, description, function = contact
        sheet.symbol(block, x, 235, tag, description, function)
        sheet.line((x, 219), (x, 140))
        block, tag, description, function = load
        sheet.symbol(block, x, 140, tag, description, function)
        sheet.wire([(x, 124), (x, 75)], COR="Azul-escuro", SECAO="1 mm²")
    sheet.note("Contato de emergência com abertura positiva.\\PCategoria de parada 0.",
               150, 58, 160, 2.5)


INPUTS = (
    ("BOTAO_NF", "-S0", "Botão de emergência", "Emergência acionada"),
    ("CHAVE", "-S2", "Chave seletora", "Modo automático"),
    ("NA", "-Q11", "Disjuntor-motor", "Falha da bomba 1"),
    ("NA", "-Q12", "Disjuntor-motor", "Falha da bomba 2"),
    ("NA", "-B1", "Chave de nível", "Nível mínimo"),
    ("NA", "-B2", "Chave de nível", "Nível máximo"),
    ("NA", "-B3", "Pressostato", "Pressão baixa"),
    ("NF", "-K0", "Relé de falta de fase", "Rede normal"),
)


def channels(sheet, card, tag, kind, devices, letter, first, rail, strip):
    """A PLC card with eight channels: terminal, device and the rail below."""
    title(sheet)
    functions = {f"CANAL{n}": function for n, (*_, function) in enumerate(devices)}
    sheet.insert(card, 12, 262, TAG=tag, DESCRICAO="Controlador lógico programável", TIPO=kind,
                 **functions)
    for n, (block, name, description, function) in enumerate(devices):
        x = 27 + 47 * n
        sheet.wire([(x, 233), (x, 190)], NUMERO=f"{letter}0.{n}", COR="Azul-escuro", SINAL=function)
        sheet.insert("BORNE", x, 188.8, NUMERO=str(n + first))
        sheet.line((x, 187.6), (x, 150))
        sheet.symbol(block, x, 150, name, description, function)
        sheet.dot(x, 85)
        sheet.wire([(x, 134), (x, 85)], COR="Azul-escuro", SECAO="1 mm²")
    sheet.wire([(20, 85), (395, 85)], POTENCIAL=rail, COR="Azul-escuro")
    arrive(sheet, 76, 2, rail)
    sheet.text("Régua " + strip, 34, 188, 2.2)


def plc_inputs(sheet):
    channels(sheet, "CLP_ENTRADAS", "-A1", "8 x 24 Vcc", INPUTS, "E", 1, "L+", "-X3")
    sheet.note("Instrumentos de campo alimentados pela fonte -G1.", 150, 62, 160, 2.5)


OUTPUTS = (
    ("BOBINA", "-K1", "Relé de interface", "Liga bomba 1"),
    ("BOBINA", "-K2", "Relé de interface", "Liga bomba 2"),
    ("BOBINA", "-K3", "Relé de interface", "Liga bomba dosadora"),
    ("BOBINA", "-K4", "Relé de interface", "Liga misturador"),
    ("VALVULA", "-Y1", "Válvula solenoide", "Abre válvula de entrada"),
    ("VALVULA", "-Y2", "Válvula solenoide", "Abre válvula de descarga"),
    ("SINALEIRO", "-H4", "Sinaleiro verde", "Sistema em operação"),
    ("BOBINA", "-K13", "Relé auxiliar", "Alarme"),
)


def plc_outputs(sheet):
    channels(sheet, "CLP_SAIDAS", "-A2", "8 x 24 Vcc 0,5 A", OUTPUTS, "S", 11, "M", "-X4")
    sheet.note("Cargas indutivas com {\\C1;diodo supressor}.", 150, 62, 160, 2.5)


# A terminal each: number, origin, target, cable and function.
TERMINALS_POWER = (
    ("1", "Rede L1", "-Q1:1", "-W1", "Entrada da rede"),
    ("2", "Rede L2", "-Q1:3", "-W1", "Entrada da rede"),
    ("3", "Rede L3", "-Q1:5", "-W1", "Entrada da rede"),
    ("PE", "Rede PE", "Barra PE", "-W1", "Terra de proteção"),
    *((str(3 * n + pole + 1), f"-K{n + 1}:{2 * pole + 2}", f"-M{n + 1}:{'UVW'[pole]}",
       f"-W{n + 11}", function)
      for n, (_, function, *_) in enumerate(MOTORS) for pole in range(3)),
)
TERMINALS_CONTROL = (
    *((str(n + 1), f"-A1:E0.{n}", tag, f"-W{n + 21}", function)
      for n, (_, tag, _, function) in enumerate(INPUTS)),
    *((str(n + 11), f"-A2:S0.{n}", tag, f"-W{n + 31}", function)
      for n, (_, tag, _, function) in enumerate(OUTPUTS)),
    ("21", "-G1:L+", "Reserva", "", "Reserva"), ("22", "-G1:M", "Reserva", "", "Reserva"),
)
TERMINAL_COLUMNS = (("Borne", 1), ("Origem", 18), ("Destino", 48), ("Cabo", 82), ("Função", 106))


def terminal_strips(sheet):
    title(sheet)
    for x, heading, rows in ((18, "Régua -X1 / -X2: potência", TERMINALS_POWER),
                             (214, "Régua -X3 / -X4: comando", TERMINALS_CONTROL)):
        sheet.text(heading, x, 270, 4)
        for label, column in TERMINAL_COLUMNS:
            sheet.text(label, x + column, 261, 2.5)
        for row, (number, origin, target, cable, function) in enumerate(rows):
            sheet.insert("LINHA_BORNE", x, 258 - 8 * row, NUMERO=number, ORIGEM=origin,
                         DESTINO=target, CABO=cable, FUNCAO=function)


CABLES = (
    ("-W1", "Cabo de alimentação", "5 x 16 mm²", "Rede", "-X1", "Alimentação geral"),
    *((f"-W{n + 11}", "Cabo de motor blindado", "4 x 4 mm²" if n < 2 else "4 x 2,5 mm²", "-X2",
       f"-M{n + 1}", function) for n, (_, function, *_) in enumerate(MOTORS)),
    ("-W21", "Cabo de comando", "2 x 1 mm²", "-X3", "-B1", "Nível mínimo"),
    ("-W22", "Cabo de comando", "2 x 1 mm²", "-X3", "-B2", "Nível máximo"),
    ("-W23", "Cabo de instrumentação", "2 x 0,75 mm²", "-X3", "-B3", "Pressão baixa"),
    ("-W31", "Cabo de comando", "3 x 1 mm²", "-X4", "-Y1", "Abre válvula de entrada"),
    ("-W32", "Cabo de comando", "3 x 1 mm²", "-X4", "-Y2", "Abre válvula de descarga"),
    ("-W40", "Cabo de rede industrial", "Cat. 6", "-A1", "Supervisório", "Comunicação"),
)
LEGEND = (
    ("NA", "Contato normalmente aberto"), ("NF", "Contato normalmente fechado"),
    ("BOBINA", "Bobina de relé ou contator"), ("VALVULA", "Válvula solenoide"),
    ("SINALEIRO", "Sinaleiro luminoso"), ("FUSIVEL1", "Fusível"), ("SIRENE", "Sirene"),
)
COLOURS = (("Preto", "Fase L1"), ("Vermelho", "Fase L2"), ("Branco", "Fase L3"),
           ("Azul-claro", "Neutro"), ("Verde e amarelo", "Terra de proteção"),
           ("Azul-escuro", "Comando em corrente contínua"))


def cables_and_legend(sheet):
    title(sheet)
    sheet.text("Lista de cabos", 18, 272, 4)
    heading = ("Cabo", "Tipo", "Seção", "De", "Para", "Função")
    table(sheet, 18, 267, (18, 58, 32, 22, 30, 60), (heading, *CABLES))
    sheet.text("Cores dos condutores", 18, 152, 4)
    table(sheet, 18, 147, (45, 70), COLOURS)
    sheet.text("Legenda de símbolos", 260, 272, 4)
    for n, (block, meaning) in enumerate(LEGEND):
        sheet.insert(block, 270, 266 - 22 * n)
        sheet.text(meaning, 285, 257 - 22 * n, 3)
    sheet.note("Cabos de instrumentação separados dos cabos de potência.\\P"
               "Blindagem aterrada em um só lado.", 150, 145, 100, 3)


PAGES = (cover, power_feed, motor_starters, control_circuit, plc_inputs, plc_outputs,
         terminal_strips, cables_and_legend)
